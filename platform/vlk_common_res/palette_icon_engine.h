// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QColor>
#include <QIconEngine>
#include <QString>

namespace Vela::Resource {

/// Draws a one-colour SVG in the colour of the palette that is current when it paints.
class PaletteIconEngine : public QIconEngine {
public:
  /// \a svg draws in its root's colour. A valid \a fixedColor is used for every mode but the disabled one.
  PaletteIconEngine(QString name, QByteArray svg, const QColor& fixedColor);

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  QIconEngine* clone() const override;
  QString key() const override;
  QString iconName() override;
  bool isNull() override;

  /// The colour an SVG of the icon set is drawn in.
  static QColor rootColor(const QByteArray& svg);

private:
  QColor color(QIcon::Mode mode) const;

  QString m_name;
  QByteArray m_svg;
  QColor m_fixedColor;
};

} // namespace Vela::Resource
