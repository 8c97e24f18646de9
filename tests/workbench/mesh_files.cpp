// SPDX-License-Identifier: MIT
#include "mesh_files.h"

#include <QString>

#include <type_traits>

namespace Workbench::Test {
namespace {

template <typename Value>
void appendRaw(QByteArray& bytes, const Value& value) {
  static_assert(std::is_trivially_copyable_v<Value>);
  bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

QByteArray line(const char* prefix, const QVector3D& p) {
  return prefix + QByteArray::number(p.x()) + ' ' + QByteArray::number(p.y()) + ' ' +
         QByteArray::number(p.z()) + '\n';
}

QByteArray line(const char* prefix, const Mesh::Triangle& t, std::uint32_t base = 0) {
  return prefix + QByteArray::number(t[0] + base) + ' ' + QByteArray::number(t[1] + base) + ' ' +
         QByteArray::number(t[2] + base) + '\n';
}

QByteArray count(std::size_t number) { return QByteArray::number(qulonglong(number)); }

QByteArray plyHeader(const char* format, const Mesh& mesh) {
  return QByteArray("ply\nformat ") + format + " 1.0\nelement vertex " + count(mesh.positions().size()) +
         "\nproperty float x\nproperty float y\nproperty float z\nelement face " +
         count(mesh.triangles().size()) + "\nproperty list uchar int vertex_indices\nend_header\n";
}

// Positions, then indices.
QByteArray gltfBuffer(const Mesh& mesh) {
  QByteArray buffer;
  for (const QVector3D& p : mesh.positions())
    appendRaw(buffer, std::array<float, 3>{p.x(), p.y(), p.z()});
  for (const Mesh::Triangle& t : mesh.triangles())
    appendRaw(buffer, t);
  return buffer;
}

QByteArray gltfDocument(const Mesh& mesh, const QByteArray& bufferUri) {
  const qsizetype positions = qsizetype(mesh.positions().size()) * 12;
  const qsizetype indices = qsizetype(mesh.triangles().size()) * 12;
  const QVector3D& low = mesh.bounds().min;
  const QVector3D& high = mesh.bounds().max;
  const QString json =
      QStringLiteral(R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[0]}],
"nodes":[{"scale":[2,2,2],"children":[1]},{"translation":[10,0,0],"mesh":0}],
"meshes":[{"primitives":[{"attributes":{"POSITION":0},"indices":1}]}],
"accessors":[{"bufferView":0,"componentType":5126,"count":%1,"type":"VEC3","min":[%2,%3,%4],"max":[%5,%6,%7]},
{"bufferView":1,"componentType":5125,"count":%8,"type":"SCALAR"}],)")
          .arg(mesh.positions().size())
          .arg(low.x())
          .arg(low.y())
          .arg(low.z())
          .arg(high.x())
          .arg(high.y())
          .arg(high.z())
          .arg(mesh.triangles().size() * 3) +
      QStringLiteral(
          R"("bufferViews":[{"buffer":0,"byteLength":%1},{"buffer":0,"byteOffset":%1,"byteLength":%2}],
"buffers":[{"byteLength":%3%4}]})")
          .arg(positions)
          .arg(indices)
          .arg(positions + indices)
          .arg(QString::fromLatin1(bufferUri));
  return json.toLatin1();
}

QByteArray padded(QByteArray bytes, char with) {
  while (bytes.size() % 4 != 0)
    bytes += with;
  return bytes;
}

} // namespace

QByteArray objFile(const Mesh& mesh) {
  QByteArray file = "# a mesh\no thing\n";
  for (const QVector3D& p : mesh.positions())
    file += line("v ", p);
  for (const Mesh::Triangle& t : mesh.triangles())
    file += line("f ", t, 1);
  return file;
}

QByteArray offFile(const Mesh& mesh) {
  QByteArray file = "OFF\n" + count(mesh.positions().size()) + ' ' + count(mesh.triangles().size()) + " 0\n";
  for (const QVector3D& p : mesh.positions())
    file += line("", p);
  for (const Mesh::Triangle& t : mesh.triangles())
    file += line("3 ", t);
  return file;
}

QByteArray asciiPlyFile(const Mesh& mesh) {
  QByteArray file = plyHeader("ascii", mesh);
  for (const QVector3D& p : mesh.positions())
    file += line("", p);
  for (const Mesh::Triangle& t : mesh.triangles())
    file += line("3 ", t);
  return file;
}

QByteArray binaryPlyFile(const Mesh& mesh) {
  QByteArray file = plyHeader("binary_little_endian", mesh);
  for (const QVector3D& p : mesh.positions())
    appendRaw(file, std::array<float, 3>{p.x(), p.y(), p.z()});
  for (const Mesh::Triangle& t : mesh.triangles()) {
    file += char(3);
    appendRaw(file, t);
  }
  return file;
}

QByteArray asciiStlFile(const Mesh& mesh) {
  QByteArray file = "solid thing\n";
  for (std::size_t i = 0; i < mesh.triangles().size(); ++i) {
    file += line("facet normal ", mesh.faceNormal(i)) + "outer loop\n";
    for (const std::uint32_t corner : mesh.triangles()[i])
      file += line("vertex ", mesh.positions()[corner]);
    file += "endloop\nendfacet\n";
  }
  return file + "endsolid thing\n";
}

QByteArray binaryStlFile(const Mesh& mesh) {
  QByteArray file(80, ' ');
  appendRaw(file, std::uint32_t(mesh.triangles().size()));
  for (std::size_t i = 0; i < mesh.triangles().size(); ++i) {
    const QVector3D normal = mesh.faceNormal(i);
    appendRaw(file, std::array<float, 3>{normal.x(), normal.y(), normal.z()});
    for (const std::uint32_t corner : mesh.triangles()[i]) {
      const QVector3D& p = mesh.positions()[corner];
      appendRaw(file, std::array<float, 3>{p.x(), p.y(), p.z()});
    }
    appendRaw(file, std::uint16_t(0));
  }
  return file;
}

QByteArray gltfFile(const Mesh& mesh) {
  return gltfDocument(mesh,
                      R"(,"uri":"data:application/octet-stream;base64,)" + gltfBuffer(mesh).toBase64() + '"');
}

QByteArray glbFile(const Mesh& mesh) {
  const QByteArray json = padded(gltfDocument(mesh, {}), ' ');
  const QByteArray buffer = padded(gltfBuffer(mesh), '\0');
  QByteArray file = "glTF";
  appendRaw(file, std::uint32_t(2));
  appendRaw(file, std::uint32_t(12 + 8 + json.size() + 8 + buffer.size()));
  appendRaw(file, std::uint32_t(json.size()));
  file += "JSON" + json;
  appendRaw(file, std::uint32_t(buffer.size()));
  file += QByteArray("BIN\0", 4) + buffer;
  return file;
}

} // namespace Workbench::Test
