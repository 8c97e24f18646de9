// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QAction;
class QHelpEvent;
class QMenu;
class QToolButton;

namespace Vela::UiBase {

/// Lets tooltips of disabled commands say why: gives tooltip objects the reason, and shows it in menus, for
/// the mouse and for the keyboard, and on tool buttons of Qt itself.
class CommandTips : public QObject {
  Q_OBJECT

public:
  /// Begins, when there is an application object; called as soon as there is a command.
  static void start();
  /// What the tooltip of a menu entry says: its own text, where the menu shows tooltips, and why it is
  /// disabled.
  static QString tipOf(const QMenu& menu, const QAction& entry);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  using QObject::QObject;

  static bool explainEntry(QMenu& menu, const QHelpEvent& event);
  static void explainActiveEntry(QMenu& menu);
  static bool explainButton(QToolButton& button, const QHelpEvent& event);
};

} // namespace Vela::UiBase
