// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/assistants/shortcut_rules.h>
#include <ui_base/ui_base_export.h>

#include <QList>
#include <QString>

class QWidget;

namespace Vela::UiBase {

class CmdMgr;

/// Something in a window that keeps people from using it.
struct AuditFinding {
  enum EKind : int {
    NoText,           ///< A command without a name.
    NoAccessibleName, ///< Screen readers have nothing to say.
    ShortcutsMeet,    ///< One key for two things.
    NoKeyboard,       ///< Only the mouse gets there.
    NoIcon,           ///< A blank button in a toolbar.
    SameIdentifier,   ///< Two commands under one identifier, of which look-ups find the first.
    TextCutOff,       ///< Text that does not fit where it is written.
    LowContrast,      ///< Text that hardly differs from what it is written on.
    SlowCommand,      ///< A command kept the main thread busy.
  };

  EKind kind = NoText;
  QString where;
  QString why;    ///< What people suffer from it.
  QString remedy; ///< The one change that mends it.
};

/// A finding that is meant to be.
struct AuditWaiver {
  AuditFinding::EKind kind = AuditFinding::NoText;
  QString where;  ///< A part of AuditFinding::where.
  QString reason; ///< Without a reason it waives nothing.
};

/// What an audit goes by.
struct AuditOptions {
  QList<AuditWaiver> waivers;
  ShortcutRules shortcuts;    ///< The modes of the application, say.
  double leastContrast = 4.5; ///< 1 to 21
};

/// Looks a window and its commands over as a user would, for the tests of an application: those of the
/// commands in the manager that a user sees, and all that the window shows or can show. Menus, flyouts,
/// sub-toolbars and pages that are hidden are looked at too, without being shown, in the size that they would
/// have. Text and contrast are measured on what is painted. What is disabled may be pale. Runs are judged by
/// the RunLog.
///
/// @code
/// const auto findings = audit(*controller, *window);
/// QVERIFY2(findings.isEmpty(), qPrintable(auditReport(findings)));
/// @endcode
UI_BASE_EXPORT QList<AuditFinding> audit(const CmdMgr& manager, QWidget& window,
                                         const AuditOptions& options = {});

/// The findings as text, three lines each.
UI_BASE_EXPORT QString auditReport(const QList<AuditFinding>& findings);

} // namespace Vela::UiBase
