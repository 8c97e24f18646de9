// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tooltips/tooltip_wrapper.h>

#include <QPoint>

#include <functional>

namespace Vela::UiBase {

/// Tooltips for what a widget paints: the text of what is under the mouse, taken literally. A child of the
/// widget.
class PointTips : public QObject {
  Q_OBJECT

public:
  /// @param textAt what is at a point of the widget; nothing where there is no more to say.
  PointTips(QWidget& widget, std::function<QString(const QPoint&)> textAt);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  std::function<QString(const QPoint&)> m_textAt;
  TooltipWrapper m_tip;
};

} // namespace Vela::UiBase
