// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <ui_base/assistants/shortcut_scheme.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/config_manager.h>
#include <workbench/commands/length_unit_command.h>
#include <workbench/commands/measurement_command.h>
#include <workbench/commands/open_recent_command.h>
#include <workbench/commands/reset_layout_command.h>
#include <workbench/commands/smooth_mesh_command.h>
#include <workbench/pages/workbench_pages.h>
#include <workbench/window_layout.h>

using namespace Workbench;
using Test::WorkbenchFixture;
using Vela::Test::settle;

/// What the workbench keeps: measurements, the place of its window, recent files.
class WorkbenchKeepingTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void measurementsOfAnEarlierMeshAreMarked() {
    WorkbenchFixture bench;
    bench.show(Test::cube(2));
    Measurements& measurements = bench.view().measurements();
    for (const float length : {1.0F, 2.0F}) {
      measurements.begin({0, 0, 0});
      measurements.finish({length, 0, 0});
    }
    QCOMPARE(measurements.text(), QStringLiteral("2\u00a0mm"));
    bench.view().document().edit(QStringLiteral("Bend"), Test::cube(3));
    QCOMPARE(measurements.text(), QStringLiteral("2\u00a0mm (before an edit)"));
    bench.view().document().undoStack()->undo();
    settle();
    QCOMPARE(measurements.text(), QStringLiteral("2\u00a0mm"));

    bench.controller().findCommand(MeasurementCommand::idOf(CopyMeasurements))->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("1\u00a0mm\n2\u00a0mm"));
    bench.press(Qt::Key_Backspace);
    QCOMPARE(measurements.list(), QStringLiteral("1\u00a0mm"));
    bench.press(Qt::Key_Backspace);
    settle();
    QVERIFY(!bench.isEnabled(MeasurementCommand::idOf(RemoveMeasurement)));
  }

  void theWindowIsKeptByIdentifiersAndReset() {
    using namespace Vela::Common;
    WorkbenchFixture bench({700, 500});
    bench.controller().findCommand(LengthUnitCommand::idOf(Inch))->setChecked(true);
    bench.window().pages().show(PhotoPage);
    WindowLayout::save(bench.window());
    auto* const shortcuts = bench.window().findChild<Vela::UiBase::ShortcutScheme*>();
    shortcuts->setShortcuts(*bench.command<SmoothMeshCommand>(), {Qt::CTRL | Qt::Key_J});
    const auto& config = Vela::Services::ApplicationService::GetInstance().GetConfigManager();
    QCOMPARE(config.value(QStringLiteral("measure/unit")).toString(), QStringLiteral("in"));
    QCOMPARE(config.value(QStringLiteral("window/page")).toString(), QStringLiteral("photographs"));
    QCOMPARE(config.value(QStringLiteral("commands/shortcuts")).toMap(), shortcuts->values());

    bench.command<ResetLayoutCommand>()->trigger();
    settle();
    QCOMPARE(bench.window().pages().current(), MeshPage);
    QCOMPARE(bench.view().measurements().unit(), Millimetre);
    QVERIFY(bench.window().size() != QSize(700, 500));
    QVERIFY(!config.value(QStringLiteral("measure/unit")).isValid());
  }

  void recentFilesAreOpenedAgain() {
    WorkbenchFixture bench;
    const QString files[] = {bench.write("a & b.obj", Test::objFile(Test::cube(2))),
                             bench.write("c.obj", Test::objFile(Test::square(1)))};
    for (const QString& file : files)
      bench.open(file);
    const auto recent = [&bench](int place) {
      return bench.controller().findCommand(OpenRecentCommand::idOf(place));
    };
    QTRY_VERIFY(recent(1)->isEnabled());
    QCOMPARE(recent(1)->text(), "&2  a && b.obj");
    QVERIFY(recent(0)->isVisible() && !recent(2)->isVisible());
    recent(1)->trigger();
    QTRY_COMPARE(bench.controller().fileName(), files[0]);
  }
};

VELA_TEST_MAIN(WorkbenchKeepingTest)
#include "keeping_test.moc"
