// SPDX-License-Identifier: MIT
#include "mesh_files.h"
#include "test_meshes.h"

#include <support/test_case.h>
#include <workbench/mesh_loader.h>

#include <QTemporaryDir>

#include <thread>

using namespace Workbench;

class MeshLoaderTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void loadsEachFormat_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("placed");
    const Mesh cube = Test::cube(2);
    QTest::newRow("OBJ") << "cube.obj" << Test::objFile(cube) << false;
    QTest::newRow("OFF") << "cube.off" << Test::offFile(cube) << false;
    QTest::newRow("PLY, text") << "cube.ply" << Test::asciiPlyFile(cube) << false;
    QTest::newRow("PLY, binary") << "cube.ply" << Test::binaryPlyFile(cube) << false;
    QTest::newRow("STL, text") << "cube.stl" << Test::asciiStlFile(cube) << false;
    QTest::newRow("STL, binary") << "cube.stl" << Test::binaryStlFile(cube) << false;
    QTest::newRow("glTF") << "cube.gltf" << Test::gltfFile(cube) << true;
    QTest::newRow("GLB") << "cube.glb" << Test::glbFile(cube) << true;
    QTest::newRow("suffix in capitals") << "CUBE.STL" << Test::binaryStlFile(cube) << false;
    QTest::newRow("name beyond ASCII") << QStringLiteral("Würfel √2.obj") << Test::objFile(cube) << false;
  }
  void loadsEachFormat() {
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(bool, placed);
    const Mesh mesh = loadMesh(write(name, content));
    QCOMPARE(mesh.triangles().size(), std::size_t(12));
    QCOMPARE(mesh.positions().size(), std::size_t(8));
    const float scale = placed ? 2 : 1;
    const QVector3D center = placed ? QVector3D(20, 0, 0) : QVector3D();
    QCOMPARE(mesh.bounds().center(), center);
    QCOMPARE(mesh.bounds().size(), QVector3D(2, 2, 2) * scale);
    // Also tells that corners are connected and faces point outwards.
    QCOMPARE(mesh.volume().value_or(0), double(8 * scale * scale * scale));
  }

  void takesPolygonsApartAndLeavesOutTheRest() {
    const Mesh mesh = loadMesh(write("house.obj", "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0.5 1.5 0\nv 0 1 0\n"
                                                  "v 9 9 9\nv 8 8 8\nv nan 0 0\n"
                                                  "f 1 2 3 4 5\nl 6 7\np 6\n"));
    QCOMPARE(mesh.triangles().size(), std::size_t(3));
    QCOMPARE(mesh.positions().size(), std::size_t(5));
    QCOMPARE(mesh.area(), 1.25);
  }

  void loadsOffTheMainThread() {
    const QString file = write("blob.ply", Test::binaryPlyFile(Test::blob(150)));
    Mesh mesh;
    std::jthread([&] { mesh = loadMesh(file); }).join();
    QCOMPARE(mesh.triangles().size(), std::size_t(45000));
  }

  void tellsWhyAFileIsNotLoaded_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    const Mesh cube = Test::cube(1);
    const QString damaged = QStringLiteral("damaged");
    const QString noTriangles = QStringLiteral("no triangles");
    QTest::newRow("empty") << "a.obj" << QByteArray() << "empty";
    QTest::newRow("unknown format") << "a.docx" << QByteArray("PK") << "format is not known";

    QTest::newRow("OBJ, points only") << "a.obj" << QByteArray("v 0 0 0\nv 1 0 0\nv 0 1 0\n") << noTriangles;
    QTest::newRow("OBJ, no such vertex") << "a.obj" << QByteArray("v 0 0 0\nv 1 0 0\nf 1 2 7\n") << damaged;
    QTest::newRow("OBJ, not a number")
        << "a.obj" << QByteArray("v nan 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n") << "not a finite number";

    QTest::newRow("OFF, cut off") << "a.off" << Test::offFile(Test::blob(10)).left(900) << damaged;
    QTest::newRow("OFF, absurd count")
        << "a.off" << QByteArray("OFF\n353535235358 6 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n") << "";

    QTest::newRow("PLY, no faces")
        << "a.ply"
        << QByteArray("ply\nformat ascii 1.0\nelement vertex 1\nproperty float x\nproperty float y\n"
                      "property float z\nend_header\n1 2 3\n")
        << noTriangles;
    QTest::newRow("PLY, infinite") << "a.ply" << Test::asciiPlyFile(cube).replace("\n-0.5 ", "\ninf ")
                                   << "not a finite number";
    QTest::newRow("PLY, brings the importer down")
        << "a.ply" << QByteArray("ply\nformat binary_\0\0", 20) << "damaged";

    QTest::newRow("STL, cut off") << "a.stl" << Test::binaryStlFile(cube).left(200) << damaged;
    QTest::newRow("glTF, no such buffer")
        << "a.gltf" << Test::gltfFile(cube).replace("data:application/octet-stream;base64,", "missing.bin?")
        << damaged;
    QTest::newRow("glTF, no such node")
        << "a.gltf" << Test::gltfFile(cube).replace(R"("children":[1])", R"("children":[77])") << damaged;
  }
  void tellsWhyAFileIsNotLoaded() {
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    expectError(write(name, content), reason);
  }

  void tellsWhatIsNotAFile() {
    expectError(m_folder.filePath(QStringLiteral("nowhere.obj")), QStringLiteral("does not exist"));
    QVERIFY(QDir(m_folder.path()).mkdir(QStringLiteral("folder.obj")));
    expectError(m_folder.filePath(QStringLiteral("folder.obj")), QStringLiteral("not a file"));
    expectError({}, QStringLiteral("name of the file is empty"));
  }

  void stopsWhenAsked() {
    const QString file = write("large.off", Test::offFile(Test::blob(400)));
    std::stop_source stop;
    stop.request_stop();
    QVERIFY_THROWS_EXCEPTION(MeshLoadError, loadMesh(file, stop.get_token()));
  }

  void knowsItsFormatsByName() {
    for (const char* name : {"a.obj", "b.PLY", "c.d.stl", "e.off", "f.gltf", "/x y/g.GLB"})
      QVERIFY(isMeshFileName(QString::fromLatin1(name)));
    for (const char* name : {"", "obj", "a.obj.txt", "a.blend"})
      QVERIFY(!isMeshFileName(QString::fromLatin1(name)));
    QVERIFY(meshNamePatterns().contains(QLatin1String("*.off")));
  }

private:
  QString write(const QString& name, const QByteArray& content) {
    const QString path = m_folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
      qFatal("cannot write %s", qPrintable(path));
    return path;
  }

  void expectError(const QString& file, const QString& reason) {
    try {
      loadMesh(file);
      QFAIL("loaded");
    } catch (const MeshLoadError& error) {
      QCOMPARE(error.fileName(), file);
      QVERIFY2(error.reason().contains(reason), qPrintable(error.reason()));
      QVERIFY2(error.message().contains(QFileInfo(file).fileName()), qPrintable(error.message()));
      QVERIFY2(error.message().contains(error.reason()), qPrintable(error.message()));
    }
  }

  QTemporaryDir m_folder;
};

VELA_TEST_MAIN(MeshLoaderTest)
#include "mesh_loader_test.moc"
