// SPDX-License-Identifier: MIT
#include "tool_button.h"

#include <ui_base/commands/command_base.h>

#include <QPointer>

namespace Vela::UiBase {

class ToolButtonPrivate {
public:
  QPointer<QAction> action;
};

const QString ToolButton::COMMANDID_PROPERTY = QString::fromLatin1(CMDID_PROP);

ToolButton::ToolButton(QWidget* parent) : ToolButton(nullptr, parent) {}

ToolButton::ToolButton(QAction* action, QWidget* parent)
    : QToolButton(parent), d(std::make_unique<ToolButtonPrivate>()) {
  Initialize(action);
}

ToolButton::~ToolButton() = default;

void ToolButton::Initialize(QAction* action) {
  setFocusPolicy(Qt::NoFocus);
  if (!action)
    return;
  d->action = action;
  setDefaultAction(action);
  if (action->text().isEmpty())
    setAccessibleName(action->toolTip());
  if (const auto* const command = dynamic_cast<const CommandBase*>(action))
    setProperty(CMDID_PROP, command->commandId());
}

QAction* ToolButton::Action() const { return d->action; }

} // namespace Vela::UiBase
