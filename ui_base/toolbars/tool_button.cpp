// SPDX-License-Identifier: MIT
#include "tool_button.h"

#include <ui_base/commands/command_base.h>

#include <QPointer>

#include <utility>

namespace Vela::UiBase {

class ToolButtonPrivate {
public:
  QPointer<QAction> action;
  bool clickedHandlerRequested = false;
  bool suppressClickedHandler = false;
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
  connect(this, &QAbstractButton::clicked, this, &ToolButton::OnClicked);
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

bool ToolButton::ClickedHandlerRequested() const { return d->clickedHandlerRequested; }

void ToolButton::SuppressClickedHandler(bool suppress) { d->suppressClickedHandler = suppress; }

// The first thing a click does: the action is toggled and triggered before clicked() is emitted.
void ToolButton::nextCheckState() {
  d->clickedHandlerRequested = true;
  QToolButton::nextCheckState();
}

void ToolButton::OnClicked(bool) {
  const QPointer<ToolButton> self(this);
  Q_EMIT ToolButtonClicked();
  if (!self)
    return;
  d->clickedHandlerRequested = false;
  if (!std::exchange(d->suppressClickedHandler, false))
    ClickedHandler();
}

void ToolButton::ClickedHandler() {}

} // namespace Vela::UiBase
