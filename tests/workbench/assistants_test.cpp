// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/assistants/audit.h>
#include <ui_base/assistants/key_probe.h>
#include <ui_base/assistants/shortcut_editor.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/config_manager.h>
#include <vlk_common_res/styles.h>
#include <workbench/commands/about_command.h>
#include <workbench/commands/find_command_command.h>
#include <workbench/commands/inspect_command.h>
#include <workbench/commands/keyboard_command.h>
#include <workbench/commands/mesh_info_command.h>
#include <workbench/commands/smooth_mesh_command.h>
#include <workbench/pages/workbench_pages.h>
#include <workbench/photos/photo_view.h>
#include <workbench/photos/photo_view_controller.h>

#include <QApplication>
#include <QKeySequenceEdit>
#include <QTreeView>

using namespace Workbench;
using namespace Vela::UiBase;
using Test::WorkbenchFixture;
using Vela::Resource::EPalette;
using Vela::Resource::Styles;

/// The assistants of the library in the workbench.
class WorkbenchAssistantsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void aShortcutIsChangedAndStaysChanged() {
    WorkbenchFixture bench;
    bench.press(Qt::Key_K, Qt::ControlModifier | Qt::AltModifier);
    QWidget* const dialog = QApplication::activeModalWidget();
    QVERIFY(dialog && dialog->findChild<ShortcutEditor*>());
    for (const QChar letter : QStringLiteral("smooth mesh"))
      QTest::sendKeyEvent(QTest::Click, dialog->windowHandle(), Qt::Key_unknown, QString(letter), {});
    dialog->findChild<QKeySequenceEdit*>()->setFocus();
    bench.press(Qt::Key_1, Qt::ControlModifier); // of a mode
    const auto findings = audit(bench.controller(), *dialog);
    QVERIFY2(findings.isEmpty(), qPrintable(auditReport(findings)));
    dialog->findChild<QTreeView*>()->setFocus();
    bench.press(Qt::Key_O, Qt::AltModifier);
    const QKeySequence chosen(Qt::CTRL | Qt::Key_1);
    QTRY_COMPARE(bench.command<SmoothMeshCommand>()->shortcut(), chosen);
    const auto& config = Vela::Services::ApplicationService::GetInstance().GetConfigManager();
    const auto kept = config.value(QStringLiteral("commands/shortcuts")).toMap();
    QCOMPARE(kept.value(SmoothMeshCommand::className()).toStringList(),
             QStringList(QStringLiteral("Ctrl+1")));
  }

  void anyKeyIsTriedFromTheMenu() {
    WorkbenchFixture bench;
    bench.press(Qt::Key_H, Qt::AltModifier);
    QTRY_VERIFY(QApplication::activePopupWidget());
    bench.press(Qt::Key_P);
    QTRY_VERIFY(QApplication::activeModalWidget());
    bench.press(Qt::Key_M, Qt::ControlModifier);
    const auto* const probe = QApplication::activeModalWidget()->findChild<KeyProbe*>();
    QVERIFY2(probe->text().contains(QStringLiteral("Smooth Mesh – ")),
             qPrintable(probe->text())); // and why not
  }

  void dialogsHaveNothingAmissEither_data() {
    const Vela::Test::Rows<EPalette> row("palette");
    row("light", Vela::Resource::Light);
    row("dark", Vela::Resource::Dark);
  }
  void dialogsHaveNothingAmissEither() {
    QFETCH(EPalette, palette);
    WorkbenchFixture bench({1000, 700});
    Styles::Instance().setPalette(palette);
    const auto asBefore = qScopeGuard([] { Styles::Instance().setPalette(Vela::Resource::Light); });
    bench.show(Test::blob(20));
    AuditOptions options;
    options.waivers = {{AuditFinding::NoKeyboard, QStringLiteral("'Commands found'"),
                        QStringLiteral("The arrow keys of the field above work it.")}};
    const QStringList ids{AboutCommand::className(),
                          MeshInfoCommand::className(),
                          InspectCommand::className(),
                          KeyboardCommand::idOf(TryKeys),
                          KeyboardCommand::idOf(EditShortcuts),
                          FindCommandCommand::className()};
    for (const QString& id : ids) {
      bench.controller().findCommand(id)->trigger();
      Vela::Test::settle();
      for (QWidget* const window : QApplication::topLevelWidgets()) {
        const auto findings =
            window->isVisible() ? audit(bench.controller(), *window, options) : QList<AuditFinding>();
        QVERIFY2(findings.isEmpty(), qPrintable(id + u'\n' + auditReport(findings)));
      }
      if (QWidget* const dialog = QApplication::activeModalWidget())
        dialog->close();
    }
  }

  void nothingIsAmissForAnybody_data() {
    const Vela::Test::Rows<EPalette, Qt::LayoutDirection> row("palette", "direction");
    row("light", Vela::Resource::Light, Qt::LeftToRight);
    row("dark", Vela::Resource::Dark, Qt::LeftToRight);
    row("light, mirrored", Vela::Resource::Light, Qt::RightToLeft);
    row("dark, mirrored", Vela::Resource::Dark, Qt::RightToLeft);
  }
  void nothingIsAmissForAnybody() {
    QFETCH(EPalette, palette);
    QFETCH(Qt::LayoutDirection, direction);
    QApplication::setLayoutDirection(direction);
    WorkbenchFixture bench({1000, 700});
    Styles::Instance().setPalette(palette);
    const auto asBefore = qScopeGuard([] { // while there is a window that hands it on
      Styles::Instance().setPalette(Vela::Resource::Light);
      QApplication::setLayoutDirection(Qt::LeftToRight);
    });
    bench.show(Test::blob(20));
    const auto ofMesh = audit(bench.controller(), bench.window());
    QVERIFY2(ofMesh.isEmpty(), qPrintable(auditReport(ofMesh)));
    bench.window().pages().show(PhotoPage);
    Vela::Test::settle();
    const auto* const photos = dynamic_cast<const CmdMgr*>(bench.window().photoView()->getViewController());
    const auto ofPhotos = audit(*photos, bench.window());
    QVERIFY2(ofPhotos.isEmpty(), qPrintable(auditReport(ofPhotos)));
  }
};

VELA_TEST_MAIN(WorkbenchAssistantsTest)
#include "assistants_test.moc"
