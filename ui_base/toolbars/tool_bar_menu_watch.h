// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QWidget;

namespace Vela::UiBase {

class ToolBar;
class ToolButtonWithMenu;

/// Tells a toolbar of presses outside of it and its menus, and says which of its menus such a press leaves
/// open. It watches the application only while a menu is open.
///
/// Inside are the whole nest of toolbars with the windows of its menus and what stands beside them, the
/// controller of an extended flyout, toolbars that keep their state on clicks outside, tooltips, and windows
/// that belong to one of these by their parents or are modal or popups, such as a flyout's colour dialog, its
/// drop-down list and its question. For a flyout that stays open in the view, so is that view. All else in
/// any window of the application is outside.
class ToolBarMenuWatch : public QObject {
  Q_OBJECT

public:
  explicit ToolBarMenuWatch(ToolBar& toolBar);

  void setWatching(bool watch);
  /// Whether the press that is being told of leaves the menu of a button open.
  bool spares(const ToolButtonWithMenu& button) const;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void judge(const QWidget& pressed);

  ToolBar& m_toolBar;
  bool m_watching = false;
  QList<QPointer<ToolButtonWithMenu>> m_spared;
};

} // namespace Vela::UiBase
