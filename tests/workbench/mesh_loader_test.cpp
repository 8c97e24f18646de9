// SPDX-License-Identifier: MIT
#include "test_folder.h"
#include "test_meshes.h"

#include <support/rows.h>
#include <support/test_case.h>
#include <workbench/mesh_loader.h>

using namespace Workbench;
using Vela::Test::Rows;

class MeshLoaderTest : public Vela::Test::TestCase, private Test::TestFolder {
  Q_OBJECT

private Q_SLOTS:
  void loadsEachFormat_data() {
    const Rows<QString, QByteArray> row("name", "content");
    row("OBJ, name beyond ASCII", QStringLiteral("Würfel √2.obj"), Test::objFile(Test::cube(2)));
    row("OFF", "cube.off", Test::offFile(Test::cube(2)));
    row("suffix in capitals", "CUBE.STL", Test::storedFile("cube_binary.stl"));
    for (const char* name : {"cube_text.ply", "cube_binary.ply", "cube_text.stl", "cube_binary.stl",
                             "placed_cube.gltf", "placed_cube.glb"})
      row(name, name, Test::storedFile(name));
  }
  void loadsEachFormat() {
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    const Mesh mesh = loadMesh(write(name, content));
    QCOMPARE(mesh.triangles().size(), std::size_t(12));
    QCOMPARE(mesh.positions().size(), std::size_t(8));
    const bool placed = name.startsWith("placed");
    QCOMPARE(mesh.bounds().center(), placed ? QVector3D(20, 0, 0) : QVector3D());
    // Also tells that corners are connected and faces point outwards.
    QCOMPARE(mesh.volume().value_or(0), placed ? 64.0 : 8.0);
  }

  void takesPolygonsApartAndLeavesOutTheRest() {
    const Mesh mesh = loadMesh(write("house.obj", "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0.5 1.5 0\nv 0 1 0\n"
                                                  "v 9 9 9\nv 8 8 8\nv nan 0 0\n"
                                                  "f 1 2 3 4 5\nl 6 7\np 6\n"));
    QCOMPARE(mesh.triangles().size(), std::size_t(3));
    QCOMPARE(mesh.positions().size(), std::size_t(5));
    QCOMPARE(mesh.area(), 1.25);
  }

  void loadsNothingOnceItIsAskedToStop() {
    std::stop_source stop;
    stop.request_stop();
    const QString file = write("cube.off", Test::offFile(Test::cube(2)));
    QVERIFY_THROWS_EXCEPTION(MeshLoadError, loadMesh(file, stop.get_token()));
  }

  void tellsWhyAFileIsNotLoaded_data() {
    const Rows<QString, QByteArray, QString> row("name", "content", "reason");
    row("empty", "a.stl", {}, "The file is empty.");
    row("unknown format", "a.docx", "PK", "format is not known");
    row("OBJ, no such vertex", "a.obj", "v 0 0 0\nv 1 0 0\nf 1 2 7\n", "damaged");
    row("OBJ, not a number", "a.obj", "v nan 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n", "not a finite number");
    row("OFF, absurd count", "a.off", "OFF\n353535235358 6 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n", "");
    row("PLY, brings the importer down", "a.ply", {"ply\nformat binary_\0\0", 20}, "damaged");
    row("STL, cut off", "a.stl", Test::storedFile("cube_binary.stl").left(200), "damaged");
    row("glTF, no such buffer", "a.gltf",
        Test::storedFile("placed_cube.gltf").replace("data:application/octet-stream;base64,", "missing.bin?"),
        "damaged");
  }
  void tellsWhyAFileIsNotLoaded() {
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    const QString file = write(name, content);
    try {
      loadMesh(file);
      QFAIL("loaded");
    } catch (const MeshLoadError& error) {
      QCOMPARE(error.fileName(), file);
      QVERIFY2(error.reason().contains(reason), qPrintable(error.reason()));
    }
  }
};

VELA_TEST_MAIN(MeshLoaderTest)
#include "mesh_loader_test.moc"
