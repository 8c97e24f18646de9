// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>
#include <ui_base/views/cmds_view_controller.h>

#include <QStringList>

#include <functional>
#include <utility>

/// A command that does what the test gives it.
class TestCommand : public Vela::UiBase::CommandBase {
  Q_OBJECT

public:
  explicit TestCommand(QString commandIdentifier, Vela::UiBase::CmdsViewController* controller = nullptr)
      : CommandBase(controller), id(std::move(commandIdentifier)) {
    setText(id);
  }
  ~TestCommand() override {
    beginDestruction();
    if (atEnd)
      atEnd();
  }

  QString commandId() const override { return id; }
  bool onExecuteAsync(bool checked) override {
    const auto job = work; // the work may delete the command
    return !job || job(checked);
  }
  using CommandBase::setIsPaidFeature;

  /// Begins and ends what lasts, as a command with a panel does.
  void begin() {
    broadcast([this](Vela::UiBase::CommandStateProtocol* observer) { observer->commandBegan(this); });
  }
  void end() {
    broadcast([this](Vela::UiBase::CommandStateProtocol* observer) { observer->commandEnded(this); });
  }

  QString id;
  std::function<bool(bool)> work;
  std::function<void()> atEnd;
  std::function<void(QString)> failed; ///< Instead of what the library does.
  Vela::UiBase::CommandContext executionContext;

protected:
  Vela::UiBase::CommandContext getExecutionCommandContext() override { return executionContext; }
  void onExecutionFailed(const QString& reason) override {
    failed ? failed(reason) : CommandBase::onExecutionFailed(reason);
  }
};

inline TestCommand* checkableCommand(const QString& id, bool checked = false) {
  auto* const command = new TestCommand(id);
  command->setCheckable(true);
  command->setChecked(checked);
  return command;
}

/// An observer that does what the test gives it.
class TestObserver : public Vela::UiBase::CommandStateProtocol {
public:
  using Handler = std::function<void(Vela::UiBase::CommandBase*, bool)>;

  void commandBeganExecuting(Vela::UiBase::CommandBase* command, bool checked) override {
    if (began)
      began(command, checked);
  }
  void commandEndedExecuting(Vela::UiBase::CommandBase* command, bool checked) override {
    if (ended)
      ended(command, checked);
  }

  Handler began;
  Handler ended;
};

/// States as text: "enabled,checked", for contexts "identifier=enabled,checked" with blanks between.
inline int valueOf(const Vela::UiBase::State& state) {
  return static_cast<Vela::UiBase::State::Action>(state);
}
inline QString textOf(const Vela::UiBase::CommandState& state) {
  return QStringLiteral("%1,%2").arg(valueOf(state.enabled)).arg(valueOf(state.checked));
}
inline QString textOf(const Vela::UiBase::CommandContext& context) {
  QStringList entries;
  for (auto it = context.get().cbegin(); it != context.get().cend(); ++it)
    entries.append(it.key() + QLatin1Char('=') + textOf(it.value()));
  return entries.join(QLatin1Char(' '));
}
