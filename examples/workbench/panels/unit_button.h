// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QToolButton>

class QMainWindow;
class QMenu;

namespace Workbench {

class MeshViewController;

/// A button that shows the unit of distances and opens a menu to choose another: the commands of the unit,
/// with their check marks. For the status bar, beside the figures.
///
/// @code
/// statusBar()->addPermanentWidget(new UnitButton(*this, *controller));
/// @endcode
class UnitButton : public QToolButton {
  Q_OBJECT

public:
  /// @param window whose status bar it is in.
  UnitButton(QMainWindow& window, const MeshViewController& controller);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void applyStyles();
  void showUnit();
  void fillMenu();

  const MeshViewController& m_controller;
  QMenu* m_menu;
  const QIcon m_arrow;
};

} // namespace Workbench
