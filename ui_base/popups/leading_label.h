// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QLabel>
#include <QStyle>

namespace Vela::UiBase {

/// A label whose text stands where one begins to read in the window, whatever direction the text itself has.
class LeadingLabel : public QLabel {
public:
  explicit LeadingLabel(QWidget* parent) : QLabel(parent) { mirror(); }

protected:
  void changeEvent(QEvent* event) override {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
      mirror();
  }

private:
  void mirror() {
    setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignAbsolute |
                 Qt::AlignVCenter);
  }
};

} // namespace Vela::UiBase
