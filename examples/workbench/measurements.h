// SPDX-License-Identifier: MIT
#pragma once

#include <qskrccommon/units.h>

#include <QObject>
#include <QString>
#include <QVector3D>

#include <optional>
#include <vector>

namespace Vela::Graphics {
class AnnotationDevice;
}

namespace Workbench {

/// The distances that were measured in a scene, and the one that is being measured. One unit of the scene is
/// a millimetre. For the main thread.
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

  /// Sets the first point of a distance; takes back the one that was begun before.
  void begin(const QVector3D& from);
  /// Where the second point would be now; nothing where it cannot be.
  void moveTo(const std::optional<QVector3D>& to);
  /// Sets the second point. Does nothing when none was begun.
  void finish(const QVector3D& to);
  /// Forgets the first point. @return whether there was one.
  bool takeBack();
  void clear();

  Vela::Common::ELengthUnit unit() const noexcept { return m_unit; }
  void setUnit(Vela::Common::ELengthUnit unit);

  /// The newest distance with its unit; empty when there is none.
  QString text() const;
  void draw(const Vela::Graphics::AnnotationDevice& device) const;

Q_SIGNALS:
  /// It is drawn another way than before.
  void changed();
  void unitChanged();
  /// A distance was finished, or all were cleared.
  void distancesChanged();

private:
  std::vector<Distance> m_distances;
  std::optional<QVector3D> m_begun;
  std::optional<QVector3D> m_end; // of the one begun
  Vela::Common::ELengthUnit m_unit = Vela::Common::Millimetre;
};

} // namespace Workbench
