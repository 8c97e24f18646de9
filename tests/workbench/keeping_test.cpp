// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/test_case.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/config_manager.h>
#include <workbench/commands/length_unit_command.h>
#include <workbench/commands/measurement_command.h>
#include <workbench/commands/mesh_info_command.h>
#include <workbench/commands/reset_layout_command.h>
#include <workbench/pages/workbench_pages.h>
#include <workbench/panels/mesh_info_dialog.h>
#include <workbench/window_layout.h>

#include <QApplication>
#include <QClipboard>
#include <QPushButton>

using namespace Workbench;
using Test::WorkbenchFixture;
using Vela::Test::settle;

/// What the workbench keeps: measurements, figures for elsewhere, the place of its window.
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

  void figuresOfTheMeshAreCopied() {
    WorkbenchFixture bench;
    bench.show(Test::cube(2));
    bench.command<MeshInfoCommand>()->trigger();
    const auto* const dialog = bench.window().findChild<MeshInfoDialog*>();
    QVERIFY(dialog);
    auto* const copy = dialog->findChild<QPushButton*>(QStringLiteral("copy_button"));
    const auto copied = [copy] {
      copy->click();
      return QApplication::clipboard()->text().contains(QLatin1String("Triangles\t12\n"));
    };
    QTRY_VERIFY(copied());
    QVERIFY(QApplication::clipboard()->text().contains(QLatin1String("Watertight\tYes")));
  }

  void theWindowIsKeptByIdentifiersAndReset() {
    using namespace Vela::Common;
    WorkbenchFixture bench({700, 500});
    bench.controller().findCommand(LengthUnitCommand::idOf(Inch))->setChecked(true);
    bench.window().pages().show(PhotoPage);
    WindowLayout::save(bench.window());
    const auto& config = Vela::Services::ApplicationService::GetInstance().GetConfigManager();
    QCOMPARE(config.value(QStringLiteral("measure/unit")).toString(), QStringLiteral("in"));
    QCOMPARE(config.value(QStringLiteral("window/page")).toString(), QStringLiteral("photographs"));

    bench.command<ResetLayoutCommand>()->trigger();
    settle();
    QCOMPARE(bench.window().pages().current(), MeshPage);
    QCOMPARE(bench.view().measurements().unit(), Millimetre);
    QVERIFY(bench.window().size() != QSize(700, 500));
    QVERIFY(!config.value(QStringLiteral("measure/unit")).isValid());
    WindowLayout::restoreContent(bench.window()); // nothing is kept
    QCOMPARE(bench.view().measurements().unit(), Millimetre);
  }
};

VELA_TEST_MAIN(WorkbenchKeepingTest)
#include "keeping_test.moc"
