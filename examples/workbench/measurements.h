// SPDX-License-Identifier: MIT
#pragma once

#include <qskrccommon/units.h>
#include <workbench/mesh.h>

#include <QObject>
#include <QPointF>
#include <QString>
#include <QVector3D>

#include <functional>
#include <optional>
#include <vector>

namespace Vela::Graphics {
class AnnotationDevice;
}

namespace Workbench {

/// The distances that were measured in a scene, and the one that is being measured. One unit of the scene is
/// a millimetre. A distance belongs to the mesh it was measured on: while another one is shown, as after an
/// edit, it is marked as old, and undoing the edit makes it good again. For the main thread.
///
/// @code
/// measurements.begin(first->point);
/// measurements.moveTo(underTheMouse->point); // shown while it is being measured
/// measurements.finish(second->point);
/// @endcode
class Measurements : public QObject {
  Q_OBJECT

public:
  struct Distance {
    QVector3D from;
    QVector3D to;
  };

  using QObject::QObject;

  /// Those that were finished, the newest last.
  const std::vector<Distance>& distances() const noexcept { return m_distances; }
  bool isEmpty() const noexcept { return m_distances.empty(); }
  /// A first point is set, and no second one.
  bool isBegun() const noexcept { return m_begun.has_value(); }

  /// The mesh that is measured from now on.
  void setMesh(const Mesh& mesh);
  bool isOld(std::size_t index) const { return !m_measuredOn[index].isCopyOf(m_mesh); }

  /// Sets the first point of a distance; takes back the one that was begun before.
  void begin(const QVector3D& from);
  /// Where the second point would be now; nothing where it cannot be.
  void moveTo(const std::optional<QVector3D>& to);
  /// Sets the second point. Does nothing when none was begun.
  void finish(const QVector3D& to);
  /// Forgets the first point. @return whether there was one.
  bool takeBack();
  /// Forgets one of them.
  void remove(std::size_t index);
  /// Forgets the distance that was finished last.
  void removeNewest();
  void clear();

  Vela::Common::ELengthUnit unit() const noexcept { return m_unit; }
  void setUnit(Vela::Common::ELengthUnit unit);

  /// The newest distance with its unit, and whether it is old; empty when there is none.
  QString text() const;
  /// All of them, a line each, the newest last.
  QString list() const;
  void draw(const Vela::Graphics::AnnotationDevice& device) const;

  using Projection = std::function<std::optional<QPointF>(const QVector3D& point)>;
  /// The distance whose line passes a point of the picture within a few pixels, the nearest of several.
  std::optional<std::size_t> nearestTo(const QPointF& place, const Projection& projection) const;

Q_SIGNALS:
  /// It is drawn another way than before.
  void changed();
  void unitChanged();
  /// A distance was finished, or some were removed.
  void distancesChanged();

private:
  QString textOf(std::size_t index) const;

  Mesh m_mesh;
  std::vector<Distance> m_distances;
  std::vector<Mesh> m_measuredOn; // of each distance
  std::optional<QVector3D> m_begun;
  std::optional<QVector3D> m_end; // of the one begun
  Vela::Common::ELengthUnit m_unit = Vela::Common::Millimetre;
};

} // namespace Workbench
