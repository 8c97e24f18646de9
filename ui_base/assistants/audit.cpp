// SPDX-License-Identifier: MIT
#include "audit.h"

#include "audit_p.h"
#include "audit_surface.h"

#include <QStringList>

#include <algorithm>

namespace Vela::UiBase {

namespace {

struct Explanation {
  const char* kind;
  const char* why;
  const char* remedy;
};

// For developers, so not translated.
Explanation explanationOf(AuditFinding::EKind kind) {
  switch (kind) {
  case AuditFinding::NoText:
    return {"no text", "menus, tooltips and the command palette have no name for it", "call setText()"};
  case AuditFinding::NoAccessibleName:
    return {"no accessible name", "screen readers have nothing to say", "call setAccessibleName()"};
  case AuditFinding::ShortcutsMeet:
    return {"shortcuts meet", "the key does neither, or cannot be told from the other",
            "give one of them another shortcut, or declare modes that keep them apart"};
  case AuditFinding::NoKeyboard:
    return {"no keyboard", "people without a mouse do not get there",
            "put it into a menu or a toolbar, or give it a shortcut or setFocusPolicy(Qt::StrongFocus)"};
  case AuditFinding::NoIcon:
    return {"no icon", "its button in the toolbar is blank", "call setIcon()"};
  case AuditFinding::SameIdentifier:
    return {"identifier twice", "look-ups, contexts and kept settings find only the first",
            "give each command an identifier of its own"};
  case AuditFinding::TextCutOff:
    return {"text cut off", "people cannot read all of it",
            "let a layout give the widget its size hint, or let the text wrap"};
  case AuditFinding::LowContrast:
    return {"low contrast", "people with weak eyes, and all in sunlight, cannot read it",
            "use colours of one palette: its text on its background"};
  case AuditFinding::SlowCommand:
    return {"slow command", "the window did not answer meanwhile",
            "call setExecutionQoS(Taren::Core::NormalQoS), or do less at once"};
  }
  return {"", "", ""};
}

} // namespace

void Audit::add(AuditFinding::EKind kind, const QString& where) {
  const auto waives = [&](const AuditWaiver& waiver) {
    return waiver.kind == kind && !waiver.reason.isEmpty() && where.contains(waiver.where);
  };
  const auto& waivers = m_options.waivers;
  if (std::any_of(waivers.cbegin(), waivers.cend(), waives))
    return;
  const Explanation explanation = explanationOf(kind);
  m_findings.append(
      {kind, where, QString::fromLatin1(explanation.why), QString::fromLatin1(explanation.remedy)});
}

QList<AuditFinding> audit(const CmdMgr& manager, QWidget& window, const AuditOptions& options) {
  Audit audit(manager, window, options);
  audit.lookAtCommands();
  const auto roots = auditedRoots(manager, window);
  for (const auto& root : roots) { // laying out and painting calls out
    if (root)
      audit.lookAt(surfaceOf(*root));
  }
  return audit.findings();
}

QString auditReport(const QList<AuditFinding>& findings) {
  QStringList lines;
  for (const AuditFinding& finding : findings)
    lines.append(QStringLiteral("%1: %2\n  %3\n  %4")
                     .arg(QString::fromLatin1(explanationOf(finding.kind).kind), finding.where, finding.why,
                          finding.remedy));
  return lines.join(u'\n');
}

} // namespace Vela::UiBase
