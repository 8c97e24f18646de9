// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_param.h>
#include <ui_base/ui_base_export.h>

#include <QColor>
#include <QList>
#include <QPainterPath>
#include <QPen>
#include <QPointer>
#include <QRect>

#include <memory>

class QGraphicsDropShadowEffect;
class QPainter;
class QVBoxLayout;
class QWidget;

namespace Vela::UiBase {

class ArrowedWindow;
class CachedShadowEffect;
struct ArrowFrame;
struct ArrowLayout;
struct CachedShadowShape;

/// The state of an ArrowedWindow, for subclasses that add to it.
class UI_BASE_EXPORT ArrowedWindowPrivate {
public:
  ArrowedWindowPrivate();
  virtual ~ArrowedWindowPrivate();
  Q_DISABLE_COPY_MOVE(ArrowedWindowPrivate)

  void attach(QWidget* widget);
  /// Lets go of the content, which stays a child of the window.
  QWidget* release();
  /// The content as the window follows it: watched, or not.
  void watchContent(bool watch);
  /// What the window takes from its content beside the size.
  void adoptLooks();
  void adoptDescription();

  void addArrow(const SArrowParam& arrow);
  void clearArrows();
  void setCurrentArrow(const SArrowParam& arrow);
  void normalizeArrows();
  /// Where everything would lie with this arrow.
  ArrowLayout measure(const SArrowParam& arrow) const;
  void layOut();
  /// The same, with the tip kept where it is in the parent or on the screen.
  void layOutAroundTip();
  bool isOutOfDate() const;
  /// Has the outline drawn, for a device of this many pixels to a pixel.
  void fitOutline(qreal pixelRatio);
  /// Body and arrow, in the coordinates of the window.
  QRect shape() const;
  void paint(QPainter& painter) const;

  QGraphicsDropShadowEffect* shadow();
  void enableShadow(bool enable);

  ArrowedWindow* window = nullptr;
  QVBoxLayout* layout = nullptr;
  QPointer<QWidget> content;
  QPainterPath outline; ///< Drawn when it is painted first after a layout.
  QPen border = QPen(QColor(150, 150, 150, 100), 0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
  QPoint tip;
  bool relayoutPending = false;
  QList<SArrowParam> arrows;
  SArrowParam currentArrow;
  int contentMargin = 0;
  int cornerRadius = 4;
  QColor background;
  QRect bounds;
  QRect partialRect;
  QColor partialColor;
  bool partialBackground = false;
  bool autoDecide = false;

private:
  ArrowFrame frame() const;
  /// As it was given: see m_askedArrows.
  const SArrowParam& asked(const SArrowParam& arrow) const;
  void paintShape(QPainter& painter) const;
  CachedShadowShape shadowShape(qreal pixelRatio);
  std::unique_ptr<CachedShadowEffect> makeShadow();

  /// As they were given: turning an angle away from its edge once more may turn it to another one.
  QList<SArrowParam> m_askedArrows;
  SArrowParam m_askedCurrent;
  QSize m_contentSize;
  QPainterPath m_borderShape;
  qreal m_pixelRatio = 1.0;
  bool m_outlineOutdated = false;
  /// What the window was laid out for last; null when it has to be done anew.
  struct LaidOut;
  std::unique_ptr<LaidOut> m_laidOut;
  QString m_adoptedName;
  QString m_adoptedDescription;
  QMetaObject::Connection m_contentDeath;
  /// One of the two: the installed one belongs to the window, the other waits to be installed.
  QPointer<CachedShadowEffect> m_installedShadow;
  std::unique_ptr<CachedShadowEffect> m_spareShadow;
};

} // namespace Vela::UiBase
