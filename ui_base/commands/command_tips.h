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

/// Takes a tooltip away when the user goes on with the menu or the button that it belongs to.
class TooltipEnd : public QObject {
public:
  TooltipEnd(TooltipWrapper& tooltip, QWidget& owner);

  /// The entry of a menu that the tooltip is about now.
  void setEntry(const QAction* entry);

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  TooltipWrapper& m_tooltip; // its parent
  QPointer<const QAction> m_entry;
};

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
  TooltipWrapper& tooltipOf(QWidget& owner, const QAction* entry = nullptr);

  QPointer<TooltipWrapper> m_tooltip; // a child of what it is about
  QPointer<TooltipEnd> m_end;         // a child of the tooltip
};

} // namespace Vela::UiBase
