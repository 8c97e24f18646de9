// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QList>
#include <QRectF>
#include <QString>

class QImage;
class QWidget;

namespace Vela::UiBase {

/// A piece of text that a widget paints.
struct PaintedText {
  QString text;
  QRectF rect; ///< What it needs, in pixels of the widget.
  QRectF clip; ///< What can be seen of the widget there.
  QColor color;

  /// Whether a user cannot read all of it.
  bool isCutOff() const;
};

/// What a widget itself would write, were it painted now; its children are left out.
QList<PaintedText> paintedTexts(QWidget& widget);

/// The contrast of a colour with what it is written on: the colour that most else of the image has there.
/// From 1 to 21; 1 where the image has nothing else.
double contrastOn(const QImage& image, const QRectF& rect, const QColor& color);

} // namespace Vela::UiBase
