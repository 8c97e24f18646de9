// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/screen_record.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/assistants/command_inspector.h>
#include <ui_base/commands/command_group.h>
#include <ui_base/commands/run_log.h>
#include <ui_base/tools/interactive_tool.h>
#include <ui_base/tooltips/default_tooltip.h>
#include <ui_base/views/base_view.h>

#include <commands/commands_fixture.h>

using namespace Vela::UiBase;

class CommandInspectorTest : public Vela::Test::TestCase {
  Q_OBJECT

  static void theTooltipIsThatOfTheLibrary(CommandInspector& inspector) {
    const auto parts = inspector.findChildren<QWidget*>();
    QWidget* const timeline = *std::find_if(
        parts.cbegin(), parts.cend(), [](auto* part) { return part->accessibleName() == "Runs over time"; });
    QTRY_VERIFY(timeline->accessibleDescription().contains(QLatin1Char('2')));
    const QPoint at(0, timeline->fontMetrics().height() / 2);
    QHelpEvent help(QEvent::ToolTip, at, timeline->mapToGlobal(at));
    QCoreApplication::sendEvent(timeline, &help);
    const auto* const tip = inspector.findChild<DefaultTooltip*>();
    QVERIFY(tip && tip->isVisible() && !QToolTip::isVisible());
    QVERIFY2(tip->AccessibleText().startsWith("%2 <b>&%1 ") && tip->AccessibleText().contains("took"),
             qPrintable(tip->AccessibleText()));
    QHelpEvent beside(QEvent::ToolTip, QPoint(0, 0), timeline->mapToGlobal(QPoint(0, 0)));
    QEvent leave(QEvent::Leave);
    for (QEvent* const end : std::initializer_list<QEvent*>{&leave, &beside}) {
      QCoreApplication::sendEvent(timeline, &help);
      QCoreApplication::sendEvent(timeline, end);
      QTRY_VERIFY(!tip->isVisible());
    }
    QVERIFY(beside.isAccepted());
  }

private Q_SLOTS:
  void itTellsOfTwoWindowsAndSurvivesThem() {
    Taren::Core::SteppedDispatcher dispatcher;
    const Taren::Core::ScopedDispatcher installed{dispatcher};
    RunLog::Instance().clear();
    QWidget owner;
    owner.show();
    CommandInspector inspector(&owner);
    const auto tables = inspector.findChildren<QTableView*>();
    const auto named = [&tables](const char* name) {
      return *std::find_if(tables.cbegin(), tables.cend(),
                           [name](const auto* known) { return known->accessibleName() == name; });
    };
    const auto* const table = named("Grey");
    const auto rows = [table] { return table->model()->rowCount(); };
    {
      BaseView first;
      BaseView second;
      const auto one = Taren::Objects::createShared<CmdsViewController>(&first);
      const auto two = Taren::Objects::createShared<CmdsViewController>(&second);
      for (const auto& controller : {one, two}) {
        controller->addCommand(new TestCommand(QStringLiteral("smooth"), controller.get()));
        controller->setGroundState(QStringLiteral("smooth"), {State::Off, State::Keep},
                                   controller == one ? QStringLiteral("No mesh.")
                                                     : QStringLiteral("No paper."));
        inspector.addManager(controller.get());
      }
      dispatcher.runAll();
      inspector.show();
      for (const QTableView* const each : tables) {
        new QAbstractItemModelTester(each->model(), each->model());
        QVERIFY(!each->model()->headerData(0, Qt::Horizontal).toString().isEmpty());
      }
      QCOMPARE(rows(), 2);
      QSignalSpy resets(table->model(), &QAbstractItemModel::modelReset);
      QVERIFY(!resets.wait(600)); // nothing has changed, in neither window
      QCOMPARE(table->model()->index(1, 1).data().toString(), QStringLiteral("No paper."));
      auto* const toggle = new TestCommand(QStringLiteral("toggle"), two.get());
      toggle->setCheckable(true);
      two->addCommand(toggle);
      one->addCommand(new TestCommand(QStringLiteral("%2 <b>&%1 ").repeated(60), one.get()));
      one->setGroundState(QStringLiteral("smooth"), {State::On, State::Keep});
      dispatcher.runAll();
      QTRY_COMPARE(rows(), 1);
      auto* const group = new CommandGroup({}, {}, QStringLiteral("group"));
      group->addCommand(two->findCommand("smooth"), 0);
      two->addCommand(group);
      auto* const button = new QToolButton(&owner);
      button->setDefaultAction(two->findCommand("smooth"));
      button->show();
      const int width = inspector.width();
      auto hold =
          one->holdContext(one->disabledContext(), ContextHolder::because(QStringLiteral("Scanning.")));
      dispatcher.runAll();
      two->pushTool(LeftButton, std::make_shared<InteractiveTool>(&second));
      QTRY_VERIFY(inspector.report().contains("InteractiveTool\tactive"));
      for (const int page : {2, 3, 5}) { // the others tell times
        inspector.findChild<QTabWidget*>()->setCurrentIndex(page);
        VELA_COMPARE_SCREEN(QStringLiteral("inspector_%1").arg(page), Vela::Test::OnlyAsItIs);
      }
      Vela::Test::moveMouse(*button);
      QTRY_VERIFY(inspector.report().startsWith("smooth (smooth)"));
      const QString report = inspector.report();
      QVERIFY2(!report.startsWith("QWidget"), qPrintable(report)); // the window of the button
      for (const char* const part :
           {"No paper.", "It is shown by QToolButton in QWidget", "\tdisabled\tScanning.",
            "\t1\tScanning.\tits hold\t", "smooth off", "BaseView\tnone\thidden"})
        QVERIFY2(report.contains(part), qPrintable(report));
      QVERIFY2(report.contains("\tenabled\tNo more: No mesh."), qPrintable(report));
      button->setDefaultAction(std::as_const(*one).commandBag().commandAt(1));
      Vela::Test::moveMouse(*button, QPoint(3, 3));
      QTRY_VERIFY(inspector.report().startsWith("%2 <b>%1 "));
      static_cast<TestCommand*>(button->defaultAction())->onExecute(false);
      dispatcher.runAll();
      QCOMPARE(inspector.width(), width);
      auto automatic = two->holdContext({{"toggle", {State::Keep, State::On}}},
                                        ContextHolder::because(QStringLiteral("Automatic.")));
      dispatcher.runAll();
      QTRY_VERIFY(inspector.report().contains("\ttoggle checked\n"));
      Vela::Test::click(*inspector.findChild<QPushButton*>());
      QVERIFY(QApplication::clipboard()->text().contains("toggle\tchecked\tAutomatic."));
      theTooltipIsThatOfTheLibrary(inspector);
      for (int i = 0; i < 201; ++i)
        toggle->setEnabled(i % 2);
      QCOMPARE(named("Changes")->model()->rowCount(), 200);
      delete button;
      one->removeAllCommands();
      two->removeAllCommands();
      dispatcher.runAll();
    }
    QTRY_COMPARE(rows(), 0);
    inspector.hide(); // nothing is left that watches
    QVERIFY(!table->model());
  }
};

VELA_TEST_MAIN(CommandInspectorTest)
#include "command_inspector_test.moc"
