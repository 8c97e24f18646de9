// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <support/rows.h>
#include <support/test_case.h>
#include <workbench/mesh_loader.h>
#include <workbench/mesh_writer.h>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif

using namespace Workbench;
using Vela::Test::Rows;

namespace {

using Corners = std::array<std::array<float, 3>, 3>;

// The triangles by the places of their corners; formats may number the vertices in their own way.
std::vector<Corners> cornersOf(const Mesh& mesh) {
  std::vector<Corners> all;
  for (const Mesh::Triangle& triangle : mesh.triangles()) {
    Corners corners;
    for (std::size_t i = 0; i < 3; ++i) {
      const QVector3D& p = mesh.positions()[triangle[i]];
      corners[i] = {p.x(), p.y(), p.z()};
    }
    all.push_back(corners);
  }
  return all;
}

bool isSame(const Corners& a, const Corners& b, float tolerance) {
  for (std::size_t i = 0; i < 9; ++i) {
    const float expected = b[i / 3][i % 3];
    if (std::abs(a[i / 3][i % 3] - expected) > std::abs(expected) * tolerance)
      return false;
  }
  return true;
}

QByteArray bytesOf(const QString& fileName) {
  QFile file(fileName);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

#ifdef Q_OS_UNIX
// While it lives, no file of the process grows beyond a size, as on a disk without room for more.
class SmallDisk {
public:
  explicit SmallDisk(rlim_t size) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    const rlimit small{size, m_before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallDisk() {
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handler);
  }
  Q_DISABLE_COPY_MOVE(SmallDisk)

private:
  void (*m_handler)(int);
  rlimit m_before{};
};

// While it lives, the process is that of a user without rights of its own; root may write everywhere.
class NobodyUser {
public:
  NobodyUser() : m_was(geteuid()) {
    if (m_was == 0)
      m_changed = setresuid(Nobody, Nobody, 0) == 0;
  }
  ~NobodyUser() {
    if (m_changed && setresuid(m_was, m_was, m_was) != 0)
      qFatal("cannot become the user again");
  }
  Q_DISABLE_COPY_MOVE(NobodyUser)

private:
  static constexpr uid_t Nobody = 65534;
  const uid_t m_was;
  bool m_changed = false;
};
#endif

} // namespace

class MeshWriterTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void cleanup() { m_folder = makeFolder(); }

  void whatIsSavedIsReadBack_data() {
    const Rows<QString> row("name");
    for (const char* name : {"a.obj", "a.ply", "a.stl", "A.STL", "Würfel √2.obj"})
      row(name, name);
  }
  void whatIsSavedIsReadBack() {
    QFETCH(QString, name);
    const Mesh shape = Test::blob(60);
    std::vector<QVector3D> positions = shape.positions();
    positions[3] *= 1e-6F;
    positions[4] *= 12345.678F;
    positions[5] = -positions[5] / 3;
    const Mesh mesh(positions, shape.triangles());
    saveMesh(mesh, path(name));
    saveMesh(mesh, path(name)); // over the first
    const Mesh read = loadMesh(path(name));
    const auto expected = cornersOf(mesh);
    const auto found = cornersOf(read);
    QCOMPARE(found.size(), expected.size());
    // The reader of text does not round to the nearest number.
    const float tolerance = name.endsWith(".obj") ? 1e-6F : 0;
    const auto same = [tolerance](const Corners& a, const Corners& b) { return isSame(a, b, tolerance); };
    QVERIFY(std::ranges::equal(found, expected, same));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList(name));
  }

#ifdef Q_OS_UNIX
  void aSaveThatFailsLeavesTheOldFile_data() {
    const Rows<QString, QString, QString> row("place", "name", "reason"); // what is wrong there
    for (const char* name : {"old.obj", "old.ply", "old.stl"})
      row(QByteArray("full disk, ") + name, "full", name, "cannot be written");
    row("read-only folder", "locked", "old.obj", "no permission to write into the folder");
    row("read-only file", "protected", "old.obj", "no permission to change the file");
    row("other format", "", "old.off", "OBJ, PLY and STL");
    row("cancelled", "cancelled", "old.ply", "");
  }
  void aSaveThatFailsLeavesTheOldFile() {
    QFETCH(QString, name);
    QFETCH(QString, place);
    QFETCH(QString, reason);
    const QByteArray old = "what was worked on for days\n";
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(old) == old.size());
    file.close();
    {
      QFile folder(m_folder->path());
      std::optional<SmallDisk> disk;
      std::optional<NobodyUser> nobody;
      std::stop_source stop;
      if (place == "full")
        disk.emplace(20000);
      if (place == "cancelled")
        stop.request_stop();
      if (place == "protected")
        QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::ReadOther));
      if (place == "locked")
        QVERIFY(file.setPermissions(QFile::Permissions(0x6666)) &&
                folder.setPermissions(QFile::Permissions(0x5555)));
      if (place == "locked" || place == "protected")
        nobody.emplace();
      try {
        saveMesh(Test::blob(60), path(name), Vela::UiBase::RunProgress(stop.get_token()));
        QFAIL("saved");
      } catch (const MeshSaveError& error) {
        QVERIFY2(error.message().contains(reason) && !reason.isEmpty(), qPrintable(error.message()));
        QVERIFY2(error.message().contains(name), qPrintable(error.message()));
        QVERIFY2(!error.message().contains(m_folder->path()), qPrintable(error.message()));
      } catch (const Vela::UiBase::RunCancelled&) {
        QVERIFY(reason.isEmpty());
      }
    }
    QFile(m_folder->path()).setPermissions(QFile::Permissions(0x7755));
    QCOMPARE(bytesOf(path(name)), old);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList(name));
  }

  void aLinkStaysOne() {
    QVERIFY(QDir(m_folder->path()).mkdir("scans"));
    saveMesh(Test::cube(1), path("scans/cube.ply"));
    QVERIFY(QFile::link(path("scans/cube.ply"), path("cube.ply")));
    saveMesh(Test::blob(10), path("cube.ply"));
    QVERIFY(QFileInfo(path("cube.ply")).isSymLink());
    QCOMPARE(loadMesh(path("scans/cube.ply")).triangles().size(), std::size_t(200));
  }
#endif

  void tellsWhereNothingCanBeSaved_data() {
    const Rows<QString, QString> row("name", "reason");
    row("no folder", "missing/a.obj", "folder does not exist");
    row("a folder", "folder.obj", "not a file");
    row("no format", "a", "format is not known");
  }
  void tellsWhereNothingCanBeSaved() {
    QFETCH(QString, name);
    QFETCH(QString, reason);
    QVERIFY(QDir(m_folder->path()).mkdir("folder.obj"));
    try {
      saveMesh(Test::cube(1), path(name));
      QFAIL("saved");
    } catch (const MeshSaveError& error) {
      QVERIFY2(error.reason().contains(reason), qPrintable(error.reason()));
    }
  }

private:
  QString path(const QString& name) const { return m_folder->filePath(name); }

  // Others may look.
  static std::unique_ptr<QTemporaryDir> makeFolder() {
    auto folder = std::make_unique<QTemporaryDir>();
    QFile(folder->path()).setPermissions(QFile::Permissions(0x7755));
    return folder;
  }

  std::unique_ptr<QTemporaryDir> m_folder = makeFolder();
};

VELA_TEST_MAIN(MeshWriterTest)
#include "mesh_writer_test.moc"
