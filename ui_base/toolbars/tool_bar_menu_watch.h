// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace Vela::UiBase {

class ToolBar;

/// Tells a toolbar of presses outside of it and its menus. It watches the application only while a menu is
/// open.
class ToolBarMenuWatch : public QObject {
  Q_OBJECT

public:
  explicit ToolBarMenuWatch(ToolBar& toolBar);

  void setWatching(bool watch);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  bool isInside(const QWidget& widget) const;

  ToolBar& m_toolBar;
  bool m_watching = false;
};

} // namespace Vela::UiBase
