// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QToolButton>

#include <memory>

namespace Vela::UiBase {

class ToolButtonPrivate;

/// The on-screen face of one command, or of a group of commands. It mirrors its action, the command: icon,
/// text, tooltip, checkable and checked, enabled. It never takes the focus.
///
/// Owned by its parent. The action is not owned; a button whose action has died stays, and does nothing.
///
/// @code
/// auto* button = new ToolButton(manager->findCommand(GridCommand::className()), panel);
/// button->property(CMDID_PROP).toString();   // the identifier of the command
/// @endcode
class UI_BASE_EXPORT ToolButton : public QToolButton {
  Q_OBJECT

public:
  /// The dynamic property that carries the identifier of the button's command: CMDID_PROP.
  static const QString COMMANDID_PROPERTY;

  /// A button without an action.
  explicit ToolButton(QWidget* parent = nullptr);
  /// A button bound to an action. For a command it carries the identifier in COMMANDID_PROPERTY. Null is
  /// ignored.
  ToolButton(QAction* action, QWidget* parent);
  ~ToolButton() override;

  /// The action the button was bound to; null when there is none or it has died.
  QAction* Action() const;

  /// Whether a click on the button is being handled: between the moment it changes the action's state and
  /// OnClicked(). What the action starts meanwhile leaves it to the click to go on.
  bool ClickedHandlerRequested() const;
  /// Keeps the next click from ClickedHandler(); for that one only.
  void SuppressClickedHandler(bool suppress);

public Q_SLOTS:
  /// The button was clicked: announces it, then calls ClickedHandler().
  void OnClicked(bool isChecked);

Q_SIGNALS:
  void ToolButtonClicked();

protected:
  /// What a subclass does on a click, beside the action; nothing by default.
  virtual void ClickedHandler();
  void nextCheckState() override;

private:
  void Initialize(QAction* action);

  const std::unique_ptr<ToolButtonPrivate> d;
};

} // namespace Vela::UiBase
