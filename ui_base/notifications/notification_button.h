// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QColor>

namespace Vela::UiBase {

/// A flat button of a notification: a text, or a closing cross when the text is empty. Reached with Tab; a
/// click does not take the focus. Space and Return press it.
class NotificationButton : public QAbstractButton {
  Q_OBJECT

public:
  explicit NotificationButton(QWidget* parent = nullptr);

  /// The colour of the text or the cross; hover, press and focus are shades of it.
  void setColor(const QColor& color);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  QFont labelFont() const;
  void paintCross(QPainter& painter) const;

  QColor m_color;
};

} // namespace Vela::UiBase
