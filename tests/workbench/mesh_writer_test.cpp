// SPDX-License-Identifier: MIT
#include "test_folder.h"
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

#ifdef Q_OS_UNIX
namespace {

// As long as the guard lives, no file of the process grows beyond a size, as on a disk without room for more.
auto limitFiles(rlim_t size) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{std::min(size, before.rlim_cur), before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  return qScopeGuard([before] { setrlimit(RLIMIT_FSIZE, &before); });
}

// As long as the guard lives, the process is that of a user without rights of its own; root may write
// everywhere.
auto becomeNobody() {
  constexpr uid_t Nobody = 65534;
  const uid_t user = geteuid();
  if (user == 0 && setresuid(Nobody, Nobody, 0) != 0)
    qFatal("cannot become another user");
  return qScopeGuard([user] {
    if (setresuid(user, user, user) != 0)
      qFatal("cannot become the user again");
  });
}

} // namespace
#endif

class MeshWriterTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
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
    const Test::TestFolder folder;
    saveMesh(mesh, folder.path(name));
    saveMesh(mesh, folder.path(name)); // over the first
    const Mesh read = loadMesh(folder.path(name));
    QCOMPARE(read.triangles().size(), mesh.triangles().size());
    // Formats number the vertices in their own way; the reader of text does not round to the nearest number.
    const float tolerance = name.endsWith(".obj") ? 1e-6F : 0;
    for (std::size_t i = 0; i < 3 * read.triangles().size(); ++i) {
      const QVector3D found = read.positions()[read.triangles()[i / 3][i % 3]];
      const QVector3D expected = positions[shape.triangles()[i / 3][i % 3]];
      QVERIFY((found - expected).length() <= expected.length() * tolerance);
    }
    QCOMPARE(QDir(folder.path({})).entryList(QDir::Files | QDir::Hidden), QStringList(name));
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
    const Test::TestFolder folder;
    QFile file(folder.write(name, old));
    const auto allow = [&](int inFolder, int inFile) {
      return QFile::setPermissions(folder.path({}), QFile::Permissions(inFolder)) &&
             file.setPermissions(QFile::Permissions(inFile));
    };
    QVERIFY(allow(place == "locked" ? 0x5555 : 0x7777, place == "protected" ? 0x4444 : 0x6666));
    std::stop_source stop;
    if (place == "cancelled")
      stop.request_stop();
    try {
      const auto nobody = becomeNobody();
      const auto disk = limitFiles(place == "full" ? 20000 : RLIM_INFINITY);
      saveMesh(Test::blob(60), file.fileName(), Vela::UiBase::RunProgress(stop.get_token()));
      QFAIL("saved");
    } catch (const MeshSaveError& error) {
      QVERIFY2(error.message().contains(reason) && !reason.isEmpty(), qPrintable(error.message()));
      QVERIFY2(error.message().contains(name), qPrintable(error.message()));
      QVERIFY2(!error.message().contains(folder.path({})), qPrintable(error.message()));
    } catch (const Vela::UiBase::RunCancelled&) {
      QVERIFY(reason.isEmpty());
    }
    QVERIFY(allow(0x7777, 0x6666));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), old);
    QCOMPARE(QDir(folder.path({})).entryList(QDir::Files | QDir::Hidden), QStringList(name));
  }

  void aLinkStaysOne() {
    const Test::TestFolder folder;
    QVERIFY(QDir(folder.path({})).mkdir("scans"));
    saveMesh(Test::cube(1), folder.path("scans/cube.ply"));
    QVERIFY(QFile::link(folder.path("scans/cube.ply"), folder.path("cube.ply")));
    saveMesh(Test::blob(10), folder.path("cube.ply"));
    QVERIFY(QFileInfo(folder.path("cube.ply")).isSymLink());
    QCOMPARE(loadMesh(folder.path("scans/cube.ply")).triangles().size(), std::size_t(200));
  }
#endif
};

VELA_TEST_MAIN(MeshWriterTest)
#include "mesh_writer_test.moc"
