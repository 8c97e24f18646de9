// SPDX-License-Identifier: MIT
#include "mesh_writer.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>
#include <QtEndian>

#include <bit>
#include <charconv>

namespace Workbench {
namespace {

constexpr qsizetype ChunkSize = 1 << 20; // bytes that are handed to the file at once

struct SaveText {
  Q_DECLARE_TR_FUNCTIONS(Workbench::MeshWriter)
};

struct WriteFailure {};

// Collects what is written, and tells how far it is.
class Sink {
public:
  Sink(QIODevice& device, std::size_t items, const Vela::UiBase::RunProgress& progress)
      : m_device(device), m_items(items), m_progress(progress) {}

  void text(std::string_view text) { m_chunk.append(text.data(), qsizetype(text.size())); }
  // The shortest digits that are read as the same number.
  template <typename Number>
  void number(Number value) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    m_chunk.append(digits.data(), end.ptr - digits.data());
  }
  template <typename Integer>
  void raw(Integer value) {
    const Integer bytes = qToLittleEndian(value);
    m_chunk.append(reinterpret_cast<const char*>(&bytes), sizeof bytes);
  }
  void raw(const QVector3D& point) {
    for (int axis = 0; axis < 3; ++axis)
      raw(std::bit_cast<std::uint32_t>(point[axis]));
  }
  void itemDone() {
    ++m_done;
    if (m_chunk.size() >= ChunkSize)
      flush();
  }
  void flush() {
    m_progress.report(double(m_done) / double(m_items));
    if (m_device.write(m_chunk) != m_chunk.size())
      throw WriteFailure();
    m_chunk.clear();
  }

private:
  QIODevice& m_device;
  const std::size_t m_items;
  const Vela::UiBase::RunProgress& m_progress;
  std::size_t m_done = 0;
  QByteArray m_chunk;
};

void writeObj(const Mesh& mesh, Sink& sink) {
  for (const QVector3D& p : mesh.positions()) {
    sink.text("v");
    for (int axis = 0; axis < 3; ++axis) {
      sink.text(" ");
      sink.number(p[axis]);
    }
    sink.text("\n");
    sink.itemDone();
  }
  for (const Mesh::Triangle& triangle : mesh.triangles()) {
    sink.text("f");
    for (const std::uint32_t corner : triangle) {
      sink.text(" ");
      sink.number(std::uint64_t(corner) + 1);
    }
    sink.text("\n");
    sink.itemDone();
  }
}

void writePly(const Mesh& mesh, Sink& sink) {
  sink.text("ply\nformat binary_little_endian 1.0\nelement vertex ");
  sink.number(mesh.positions().size());
  sink.text("\nproperty float x\nproperty float y\nproperty float z\nelement face ");
  sink.number(mesh.triangles().size());
  sink.text("\nproperty list uchar int vertex_indices\nend_header\n");
  for (const QVector3D& p : mesh.positions()) {
    sink.raw(p);
    sink.itemDone();
  }
  for (const Mesh::Triangle& triangle : mesh.triangles()) {
    sink.raw(std::uint8_t(3));
    for (const std::uint32_t corner : triangle)
      sink.raw(corner);
    sink.itemDone();
  }
}

void writeStl(const Mesh& mesh, Sink& sink) {
  constexpr std::size_t HeaderSize = 80;
  sink.text(std::string(HeaderSize, ' '));
  sink.raw(std::uint32_t(mesh.triangles().size()));
  for (std::size_t i = 0; i < mesh.triangles().size(); ++i) {
    sink.raw(mesh.faceNormal(i));
    for (const std::uint32_t corner : mesh.triangles()[i])
      sink.raw(mesh.positions()[corner]);
    sink.raw(std::uint16_t(0));
    sink.itemDone();
  }
}

struct Format {
  QString suffix;
  void (*write)(const Mesh& mesh, Sink& sink);
};

const std::array<Format, 3>& formats() {
  static const std::array<Format, 3> list{Format{QStringLiteral("obj"), writeObj},
                                          Format{QStringLiteral("ply"), writePly},
                                          Format{QStringLiteral("stl"), writeStl}};
  return list;
}

const Format* formatOf(const QString& fileName) {
  const QString suffix = QFileInfo(fileName).suffix();
  for (const Format& format : formats()) {
    if (suffix.compare(format.suffix, Qt::CaseInsensitive) == 0)
      return &format;
  }
  return nullptr;
}

// What can be said without writing.
QString obstacle(const QString& fileName) {
  const QFileInfo file(fileName);
  const QFileInfo folder(file.absolutePath());
  if (!formatOf(fileName))
    return SaveText::tr("The format is not known; OBJ, PLY and STL are.");
  if (!folder.isDir())
    return SaveText::tr("The folder does not exist.");
  if (file.exists() && !file.isFile())
    return SaveText::tr("It is not a file.");
  if (file.exists() && !file.isWritable())
    return SaveText::tr("There is no permission to change the file.");
  if (!folder.isWritable())
    return SaveText::tr("There is no permission to write into the folder.");
  return {};
}

// Some systems tell of a full disk only in their own words.
QString reasonOf(const QSaveFile& file, qint64 written) {
  const QStorageInfo disk(QFileInfo(file.fileName()).absolutePath());
  if (disk.isValid() && disk.bytesAvailable() < std::max<qint64>(written, ChunkSize))
    return SaveText::tr("There is not enough room on the disk.");
  return SaveText::tr("It cannot be written: %1.").arg(file.errorString());
}

} // namespace

MeshSaveError::MeshSaveError(const QString& fileName, const QString& reason)
    : std::runtime_error(QStringLiteral("%1: %2").arg(fileName, reason).toStdString()),
      m_fileName(fileName),
      m_reason(reason) {}

QString MeshSaveError::message() const {
  return SaveText::tr("Cannot save “%1”. %2").arg(QFileInfo(m_fileName).fileName(), m_reason);
}

void saveMesh(const Mesh& mesh, const QString& fileName, const Vela::UiBase::RunProgress& progress) {
  if (const QString reason = obstacle(fileName); !reason.isEmpty())
    throw MeshSaveError(fileName, reason);
  QSaveFile file(fileName);
  if (!file.open(QIODevice::WriteOnly))
    throw MeshSaveError(fileName, reasonOf(file, 0));
  Sink sink(file, mesh.positions().size() + mesh.triangles().size() + 1, progress);
  try {
    formatOf(fileName)->write(mesh, sink);
    sink.flush();
  } catch (const WriteFailure&) {
    throw MeshSaveError(fileName, reasonOf(file, file.pos()));
  }
  const qint64 written = file.pos();
  if (!file.commit())
    throw MeshSaveError(fileName, reasonOf(file, written));
}

bool canSaveMesh(const QString& fileName) { return formatOf(fileName) != nullptr; }

QStringList savedMeshFilters() {
  return {SaveText::tr("PLY, small and exact (*.ply)"), SaveText::tr("OBJ, readable text (*.obj)"),
          SaveText::tr("STL, for printing (*.stl)")};
}

} // namespace Workbench
