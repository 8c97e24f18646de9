// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/rows.h>
#include <ui_base/assistants/audit.h>
#include <vlk_common_res/styles.h>
#include <workbench/commands/about_command.h>
#include <workbench/commands/find_command_command.h>
#include <workbench/commands/inspect_command.h>
#include <workbench/commands/keyboard_command.h>
#include <workbench/commands/mesh_info_command.h>
#include <workbench/language.h>
#include <workbench/pages/workbench_pages.h>
#include <workbench/photos/photo_view.h>
#include <workbench/photos/photo_view_controller.h>

using namespace Workbench;
using namespace Vela::UiBase;
using Test::WorkbenchFixture;
using Vela::Resource::EPalette;
using Vela::Resource::Styles;

/// The assistants of the library in the workbench.
class WorkbenchAssistantsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void nothingIsAmissForAnybody_data() {
    const Vela::Test::Rows<QLocale::Language, EPalette, Qt::LayoutDirection> row("language", "palette",
                                                                                 "direction");
    for (const auto language : {QLocale::English, QLocale::German}) {
      for (const auto palette : {Vela::Resource::Light, Vela::Resource::Dark}) {
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft})
          row(QStringLiteral("%1 %2 %3").arg(language).arg(palette).arg(direction).toUtf8(), language,
              palette, direction);
      }
    }
  }
  void nothingIsAmissForAnybody() {
    QFETCH(QLocale::Language, language);
    QFETCH(EPalette, palette);
    QFETCH(Qt::LayoutDirection, direction);
    QApplication::setLayoutDirection(direction);
    WorkbenchFixture bench({1000, 700});
    Styles::Instance().setPalette(palette);
    Language::choose(language);
    QApplication::setLayoutDirection(direction); // the language brought its own
    const auto asBefore = qScopeGuard([] {       // while there is a window that hands it on
      Styles::Instance().setPalette(Vela::Resource::Light);
      Language::choose(QLocale::English);
      QApplication::setLayoutDirection(Qt::LeftToRight);
    });
    bench.show(Test::blob(20));
    const auto amiss = [](const CmdMgr& manager, QWidget& window) {
      AuditOptions options;
      options.waivers = {{AuditFinding::NoKeyboard, QStringLiteral("CommandPalette / QListView"),
                          QStringLiteral("The arrow keys of the field above work it.")},
                         {AuditFinding::SlowCommand, QString(),
                          QStringLiteral("The machine of a test may be at other things.")}};
      return window.isVisible() ? auditReport(audit(manager, window, options)) : QString();
    };
    QCOMPARE(amiss(bench.controller(), bench.window()), QString());
    const QStringList dialogs = {AboutCommand::className(),
                                 MeshInfoCommand::className(),
                                 InspectCommand::className(),
                                 KeyboardCommand::idOf(TryKeys),
                                 KeyboardCommand::idOf(EditShortcuts),
                                 FindCommandCommand::className()};
    for (const QString& id : direction == Qt::LeftToRight ? dialogs : QStringList()) {
      bench.controller().findCommand(id)->trigger();
      Vela::Test::settle();
      for (QWidget* const window : QApplication::topLevelWidgets())
        QCOMPARE(amiss(bench.controller(), *window), QString());
      if (QWidget* const dialog = QApplication::activeModalWidget())
        dialog->close();
    }
    bench.window().pages().show(PhotoPage);
    Vela::Test::settle();
    const auto* const photos = dynamic_cast<const CmdMgr*>(bench.window().photoView()->getViewController());
    QCOMPARE(amiss(*photos, bench.window()), QString());
  }
};

VELA_TEST_MAIN(WorkbenchAssistantsTest)
#include "assistants_test.moc"
