// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/test_case.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/assistants/command_inspector.h>
#include <ui_base/tools/interactive_tool.h>
#include <ui_base/views/base_view.h>

#include <QTableView>
#include <QToolButton>

#include <commands/commands_fixture.h>

using namespace Vela::UiBase;

class CommandInspectorTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void itTellsOfTwoWindowsAndSurvivesThem() {
    Taren::Core::SteppedDispatcher dispatcher;
    const Taren::Core::ScopedDispatcher installed{dispatcher};
    QWidget owner;
    owner.show();
    CommandInspector inspector(&owner);
    const auto tables = inspector.findChildren<QTableView*>();
    const auto* const table = *std::find_if(
        tables.cbegin(), tables.cend(), [](const auto* known) { return known->accessibleName() == "Grey"; });
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
      QCOMPARE(rows(), 2);
      QCOMPARE(table->model()->index(1, 1).data().toString(), QStringLiteral("No paper."));
      one->setGroundState(QStringLiteral("smooth"), {State::On, State::Keep});
      dispatcher.runAll();
      QTRY_COMPARE(rows(), 1);
      auto* const button = new QToolButton(&owner);
      button->setDefaultAction(two->findCommand("smooth"));
      button->show();
      auto hold =
          one->holdContext(one->disabledContext(), ContextHolder::because(QStringLiteral("Scanning.")));
      dispatcher.runAll();
      two->pushTool(LeftButton, std::make_shared<InteractiveTool>(&second));
      Vela::Test::moveMouse(*button);
      QTRY_VERIFY(inspector.report().contains("InteractiveTool\tactive"));
      const QString report = inspector.report();
      QVERIFY2(!report.startsWith("QWidget"), qPrintable(report)); // the window of the button
      for (const char* const part :
           {"No paper.", "It is shown by QToolButton in QWidget", "\tdisabled\tScanning.",
            "\t1\tScanning.\tits hold\tsmooth off", "BaseView\tnone\thidden"})
        QVERIFY2(report.contains(part), qPrintable(report));
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
