// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/assistants/command_inspector.h>
#include <ui_base/views/base_view.h>

#include <QTableView>

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
    const auto* const table = inspector.findChild<QTableView*>();
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
      one->removeAllCommands();
      two->removeAllCommands();
      dispatcher.runAll();
    }
    QTRY_COMPARE(rows(), 0);
  }
};

VELA_TEST_MAIN(CommandInspectorTest)
#include "command_inspector_test.moc"
