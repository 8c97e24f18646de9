// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

class QAction;
class QMenu;
class QToolButton;
class QWidget;

namespace Vela::UiBase {

class TooltipWrapper;

/// Lets tooltips of disabled commands say why: gives tooltip objects the reason, and shows it in menus, for
/// the mouse and for the keyboard, and on tool buttons of Qt itself. Tooltips of menu entries look like all
/// others of the library.
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

  bool explainEntry(QMenu& menu, const QAction* entry);
  bool explainButton(QToolButton& button);
  TooltipWrapper& tooltipOf(QWidget& owner);
  void hideFrom(QObject* owner, const QEvent& event);

  QPointer<TooltipWrapper> m_tooltip; // a child of what it is about
  QPointer<const QAction> m_entry;    // of a menu, which it is about
};

} // namespace Vela::UiBase
