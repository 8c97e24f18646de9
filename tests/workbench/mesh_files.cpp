// SPDX-License-Identifier: MIT
#include "mesh_files.h"

#include <QFile>
#include <QString>

namespace Workbench::Test {
namespace {

QByteArray lines(const Mesh& mesh, const char* vertex, const char* face, std::uint32_t base) {
  const QString three = QStringLiteral("%1 %2 %3\n");
  QByteArray all;
  for (const QVector3D& p : mesh.positions())
    all += vertex + three.arg(p.x()).arg(p.y()).arg(p.z()).toLatin1();
  for (const Mesh::Triangle& t : mesh.triangles())
    all += face + three.arg(t[0] + base).arg(t[1] + base).arg(t[2] + base).toLatin1();
  return all;
}

} // namespace

QByteArray objFile(const Mesh& mesh) { return "# a mesh\no thing\n" + lines(mesh, "v ", "f ", 1); }

QByteArray offFile(const Mesh& mesh) {
  const QString counts = QStringLiteral("OFF\n%1 %2 0\n");
  return counts.arg(mesh.positions().size()).arg(mesh.triangles().size()).toLatin1() +
         lines(mesh, "", "3 ", 0);
}

QByteArray storedFile(const char* name) {
  QFile file(QStringLiteral(VLK_TEST_MESHES "/") + QLatin1String(name));
  if (!file.open(QIODevice::ReadOnly))
    qFatal("cannot read %s", name);
  return file.readAll();
}

} // namespace Workbench::Test
