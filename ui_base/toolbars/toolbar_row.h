// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/live_pointer.h>
#include <ui_base/toolbars/tool_bar.h>

#include <QLabel>
#include <QPoint>
#include <QPointer>

namespace Vela::UiBase {

/// The row of toolbars behind a main toolbar, and the separator between it and them: where each stands, and
/// how long it may be. In right-to-left layouts a horizontal row goes to the left.
class ToolbarRow {
public:
  /// The separator is a child of the toolbar's parent, hidden at first.
  explicit ToolbarRow(ToolBar* mainToolbar);
  ~ToolbarRow();
  Q_DISABLE_COPY_MOVE(ToolbarRow)

  void showSeparator(bool show);
  /// The main toolbar has moved or got another size.
  void moveSeparator();
  /// Places the toolbars, of which those that are hidden take no room.
  void place(const QList<ToolBar*>& toolbars);
  /// Makes a toolbar as large as its buttons need, and as long as the parent has room for it.
  void fit(ToolBar& toolbar) const;

private:
  int lengthFor(const ToolBar& toolbar) const;
  void makeSeparator();
  QPoint behind(const QRect& previous, int gap, const QSize& size) const;
  bool isHorizontal() const { return m_main->Orientation() == Qt::Horizontal; }
  bool isMirrored() const { return isHorizontal() && m_main->isRightToLeft(); }

  const LivePointer<ToolBar> m_main;
  QPointer<QLabel> m_separator;
};

} // namespace Vela::UiBase
