// SPDX-License-Identifier: MIT
#pragma once

#include "audit.h"

namespace Vela::UiBase {

class CommandBase;
struct AuditSurface;

/// The findings of one audit as they come in.
class Audit {
public:
  Audit(const CmdMgr& manager, QWidget& window, const AuditOptions& options)
      : m_manager(manager), m_window(window), m_options(options) {}

  void lookAtCommands();
  void lookAt(const AuditSurface& surface);
  QList<AuditFinding> findings() const { return m_findings; }

private:
  void add(AuditFinding::EKind kind, const QString& where);

  // audit_commands.cpp
  void lookAtIdentifiers(const QList<CommandBase*>& commands);
  void lookAtShortcuts(const QList<CommandBase*>& commands);
  void lookAtRuns(const QList<CommandBase*>& commands);
  // audit_widgets.cpp
  void lookAtWidget(QWidget& widget);
  void lookAtTexts(QWidget& widget, const AuditSurface& surface);

  const CmdMgr& m_manager;
  QWidget& m_window;
  const AuditOptions& m_options;
  QList<AuditFinding> m_findings;
};

} // namespace Vela::UiBase
