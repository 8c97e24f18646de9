// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QStyle>

namespace Vela::UiBase {

/// A label whose text stands where one begins to read in the window, whatever direction the text itself has.
class LeadingLabel : public QLabel {
public:
  using QLabel::QLabel;

protected:
  void changeEvent(QEvent* event) override {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
      mirror();
  }
  bool event(QEvent* event) override {
    if (event->type() == QEvent::Polish)
      mirror();
    return QLabel::event(event);
  }

private:
  void mirror() {
    setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignAbsolute |
                 Qt::AlignVCenter);
  }
};

} // namespace Vela::UiBase
