// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tools/tool_operation.h>
#include <ui_base/ui_base_export.h>

#include <QString>
#include <QVariantMap>

namespace Vela::UiBase {

class CmdMgr;
class CommandBase;

/// What an application gives so that sessions with it can be recorded and replayed. Main thread only.
///
/// @code
/// class MeshSubject : public SessionSubject {
/// public:
///   QVariantMap state() const override {
///     return {{"mesh", hash(m_document.mesh())}, {"commands", commandStates(*m_controller)}};
///   }
/// };
/// @endcode
class UI_BASE_EXPORT SessionSubject {
public:
  SessionSubject() = default;
  virtual ~SessionSubject();
  SessionSubject(const SessionSubject&) = delete;
  SessionSubject& operator=(const SessionSubject&) = delete;

  /// What is compared after each step: texts, numbers, truth values, and lists and maps of them. It must not
  /// depend on language, looks, or the size of the window. What is large is best given as a hash.
  virtual QVariantMap state() const = 0;
  /// Whether a command is a part of sessions; true by default. Not recorded, and no part of commandStates(),
  /// are best commands that only show something, choose how the program looks, or set off another command.
  virtual bool isRecorded(const CommandBase& command) const;
  /// Does again what a view told to the OperationLog; tools are asked themselves.
  /// @return whether it could; false by default.
  virtual bool perform(const ToolOperation& operation);
  /// Whether something is under way that is no run of a command, and that the next step has to wait for.
  virtual bool isBusy() const;

  /// How the commands of a manager stand that are recorded, by identifier: "on" or "off", and "checked". For
  /// state().
  QVariantMap commandStates(const CmdMgr& manager) const;
};

} // namespace Vela::UiBase
