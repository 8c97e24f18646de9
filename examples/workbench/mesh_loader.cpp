// SPDX-License-Identifier: MIT
#include "mesh_loader.h"

#include <workbench/mesh_reader/mesh_stream.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <cstdlib>
#include <cstring>
#include <span>
#include <type_traits>
#include <utility>

namespace Workbench {
namespace {

constexpr int PollInterval = 50; // ms between two looks at the stop token

struct MeshText {
  Q_DECLARE_TR_FUNCTIONS(Workbench::MeshLoader)
};

const QStringList& suffixes() {
  static const QStringList list{QStringLiteral("obj"), QStringLiteral("ply"),  QStringLiteral("stl"),
                                QStringLiteral("off"), QStringLiteral("gltf"), QStringLiteral("glb")};
  return list;
}

// What can be said about a file without reading it.
QString obstacle(const QString& fileName) {
  if (fileName.isEmpty())
    return MeshText::tr("The name of the file is empty.");
  const QFileInfo file(fileName);
  if (!file.exists())
    return MeshText::tr("The file does not exist.");
  if (!file.isFile())
    return MeshText::tr("It is not a file.");
  if (!file.isReadable())
    return MeshText::tr("There is no permission to read the file.");
  if (file.size() == 0)
    return MeshText::tr("The file is empty.");
  if (!isMeshFileName(fileName))
    return MeshText::tr("The format is not known; OBJ, PLY, STL, OFF, glTF and GLB are.");
  return {};
}

QString readerPath() {
  const QString folder = QCoreApplication::applicationDirPath();
  const QString name = QStringLiteral("workbench_mesh_reader");
  const QString found = QStandardPaths::findExecutable(name, {folder});
  return found.isEmpty() ? QDir(folder).filePath(name) : found;
}

QString reasonOf(int status) {
  switch (status) {
  case MeshUnreadable:
    return MeshText::tr("The file is damaged or incomplete.");
  case MeshWithoutTriangles:
    return MeshText::tr("It contains no triangles.");
  case MeshNotFinite:
    return MeshText::tr("The file is damaged: a vertex has a coordinate that is not a finite number.");
  case MeshTooLarge:
    return MeshText::tr("The mesh does not fit into memory, or the file is damaged.");
  default:
    return MeshText::tr("The file is damaged, reading it failed.");
  }
}

using Bytes = std::vector<char>;

void append(Bytes& bytes, const QByteArray& more) { bytes.insert(bytes.end(), more.begin(), more.end()); }

// Runs the reader; the bytes of a mesh stream, or an exception.
Bytes readStream(const QString& fileName, const std::stop_token& stop) {
  QProcess reader;
  reader.start(readerPath(), {QFileInfo(fileName).absoluteFilePath()}, QIODevice::ReadOnly);
  if (!reader.waitForStarted())
    throw MeshLoadError(fileName, MeshText::tr("The program that reads meshes cannot be started."),
                        QStringLiteral("%1: %2").arg(readerPath(), reader.errorString()));
  Bytes stream;
  while (reader.state() != QProcess::NotRunning) {
    if (stop.stop_requested()) {
      reader.kill();
      reader.waitForFinished();
      throw MeshLoadError(fileName, MeshText::tr("Loading was stopped."));
    }
    reader.waitForReadyRead(PollInterval);
    append(stream, reader.readAllStandardOutput());
  }
  append(stream, reader.readAllStandardOutput());
  if (reader.exitStatus() != QProcess::NormalExit)
    throw MeshLoadError(fileName, reasonOf(EXIT_FAILURE));
  if (reader.exitCode() != MeshRead)
    throw MeshLoadError(fileName, reasonOf(reader.exitCode()),
                        QString::fromUtf8(reader.readAllStandardError().trimmed()));
  return stream;
}

// Takes the parts of a mesh stream one after another.
class StreamParts {
public:
  explicit StreamParts(const Bytes& bytes) : m_rest(bytes) {}

  template <typename Element>
  std::vector<Element> take(std::uint64_t count) {
    static_assert(std::is_trivially_copyable_v<Element>);
    if (count > m_rest.size() / sizeof(Element))
      throw std::runtime_error("The mesh reader sent too little");
    std::vector<Element> elements(count);
    const std::size_t bytes = count * sizeof(Element);
    if (bytes > 0)
      std::memcpy(static_cast<void*>(elements.data()), m_rest.data(), bytes);
    m_rest = m_rest.subspan(bytes);
    return elements;
  }

private:
  std::span<const char> m_rest;
};

Mesh decode(const Bytes& stream) {
  static_assert(sizeof(QVector3D) == 3 * sizeof(float));
  static_assert(sizeof(Mesh::Triangle) == 3 * sizeof(std::uint32_t));
  StreamParts parts(stream);
  const MeshStreamHeader header = parts.take<MeshStreamHeader>(1).front();
  if (header.magic != MeshStreamHeader::Magic)
    throw std::runtime_error("The mesh reader sent something else than a mesh");
  auto positions = parts.take<QVector3D>(header.vertexCount);
  auto triangles = parts.take<Mesh::Triangle>(header.triangleCount);
  return {std::move(positions), std::move(triangles)};
}

} // namespace

MeshLoadError::MeshLoadError(const QString& fileName, const QString& reason, QString details)
    : std::runtime_error(QStringLiteral("%1: %2").arg(fileName, reason).toStdString()),
      m_fileName(fileName),
      m_reason(reason),
      m_details(std::move(details)) {}

QString MeshLoadError::message() const {
  return MeshText::tr("Cannot open “%1”. %2").arg(QFileInfo(m_fileName).fileName(), m_reason);
}

Mesh loadMesh(const QString& fileName, const std::stop_token& stop) {
  const QString reason = obstacle(fileName);
  if (!reason.isEmpty())
    throw MeshLoadError(fileName, reason);
  try {
    return decode(readStream(fileName, stop));
  } catch (const MeshLoadError&) {
    throw;
  } catch (const std::bad_alloc&) {
    throw MeshLoadError(fileName, reasonOf(MeshTooLarge));
  } catch (const std::exception& error) {
    throw MeshLoadError(fileName, reasonOf(MeshUnreadable), QString::fromLatin1(error.what()));
  }
}

bool isMeshFileName(const QString& fileName) {
  return suffixes().contains(QFileInfo(fileName).suffix(), Qt::CaseInsensitive);
}

QString meshNamePatterns() { return QStringLiteral("*.") + suffixes().join(QStringLiteral(" *.")); }

} // namespace Workbench
