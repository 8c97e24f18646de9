// SPDX-License-Identifier: MIT
#include "execution_fixture.h"

#include <support/test_case.h>
#include <ui_base/commands/command_group.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button.h>
#include <ui_base/tooltips/a_tooltip_ex.h>
#include <ui_base/tooltips/tooltip_object.h>
#include <ui_base/tooltips/tooltip_reason.h>

using namespace Vela::UiBase;

namespace {

const QString other = QStringLiteral("other");
const QString isRunning = QStringLiteral("\"work\" is running.");

/// The commands of the fixture, of which the other one knows its controller.
class ExplainFixture : public AsyncFixture {
public:
  ExplainFixture() {
    other->setViewController(controller);
    other->setToolTip(QStringLiteral("Does another thing"));
  }
  QString causes() const {
    QStringList texts;
    for (const CommandCause& cause : controller->explain(QStringLiteral("other")))
      texts += cause.text;
    return texts.join(QLatin1Char(' '));
  }
};

} // namespace

/// Why a command cannot be used, and where users hear of it.
class ExplainTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void causesAreTold() {
    ExplainFixture f;
    QCOMPARE(f.causes(), QString());
    f.other->setEnabled(false);
    f.controller->setContext({{"work", {1, 2}}}); // the context of another one waits
    QCOMPARE(f.causes(), "Not available at present.");
    f.command->trigger();
    QCOMPARE(f.causes(), isRunning + " Not available at present.");
    f.controller->setGroundState(other, {State::Off, State::Keep}, QStringLiteral("No scanner."));
    QCOMPARE(f.causes(), isRunning + " No scanner.");
    QCOMPARE(f.other->whyUnavailable(), isRunning);
    f.dispatcher.runAll();
    QCOMPARE(f.causes(), "No scanner.");
    f.controller->setGroundState(other, {State::On, State::Keep});
    f.controller->pushContext(f.controller->disabledContext(other));
    QCOMPARE(f.causes(), "Something else is under way.");
    f.controller->popContext();
    f.dispatcher.runAll();
    QCOMPARE(f.causes(), QString());

    auto* const group = new CommandGroup(QString(), QStringLiteral("Shading"), QStringLiteral("g"));
    f.other->setCheckable(true);
    group->addCommand(f.other, 0);
    f.controller->addCommand(group);
    f.other->setEnabled(false);
    QCOMPARE(TooltipReason::of(*group), f.other->whyUnavailable());
    group->addCommand(new TestCommand(QStringLiteral("can be used")), 0);
    QCOMPARE(TooltipReason::of(*group), QString());
    f.other->setEnabled(true);
    group->groupActionGroup()->setEnabled(false);
    QCOMPARE(f.causes(), "The group \"Shading\" is not available.");
  }

  void tooltipOfAButtonEndsWithTheCause() {
    ExplainFixture f;
    ToolBar bar(f.view, Qt::TopToolBarArea);
    ToolButton* const button = bar.AddAction(f.other);
    f.view->show();
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(f.view));
    TooltipObject* const tooltip = button->GetTooltipObject();
    const QString text = QStringLiteral("Does another thing");
    f.command->trigger();
    f.drain();
    tooltip->ShowTooltip();
    QCOMPARE(tooltip->TooltipControl()->accessibleName(), text + "\n" + isRunning);
    {
      const ContextHold scan = f.controller->holdContext(f.controller->disabledContext(other),
                                                         ContextHolder::because("Scanning."));
      QCoreApplication::sendPostedEvents(); // another cause, and nothing else
      QCOMPARE(button->accessibleDescription(), text + "\nScanning.");
      QCOMPARE(tooltip->TooltipControl()->accessibleName(), button->accessibleDescription());
    }
    QCoreApplication::sendPostedEvents();
    QCOMPARE(tooltip->TooltipControl()->accessibleName(), text + "\n" + isRunning);
    f.dispatcher.runAll(); // while it is shown
    QCOMPARE(tooltip->TooltipControl()->accessibleName(), text);
    QCOMPARE(button->accessibleDescription(), text);
  }

  void plainToolButtonTellsTheCause() {
    ExplainFixture f;
    QToolButton button;
    button.setDefaultAction(f.other);
    button.show();
    const auto ask = [&button] {
      QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), button.mapToGlobal(QPoint(5, 5)));
      QCoreApplication::sendEvent(&button, &event);
      return button.findChild<ATooltipEx*>();
    };
    QVERIFY(!ask() && QToolTip::isVisible());
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
    f.command->trigger();
    f.drain();
    const ATooltipEx* const shown = ask();
    QVERIFY(shown && shown->isVisible() && !QToolTip::isVisible());
    QCOMPARE(shown->accessibleName(), "Does another thing\n" + isRunning);
  }

  void menuEntriesTellTheCause() {
    ExplainFixture f;
    QMenu menu;
    menu.addAction(f.other);
    menu.addAction(f.command);
    f.command->trigger();
    f.drain();
    menu.popup({20, 20});
    QMenu further;
    f.command->setMenu(&further);
    const auto heard = [&menu](int entry) {
      return QAccessible::queryAccessibleInterface(&menu)->child(entry);
    };
    QCOMPARE(heard(1)->child(0), QAccessible::queryAccessibleInterface(&further));
    QVERIFY(heard(1)->indexOfChild(heard(1)->child(0)) == 0 && heard(1)->indexOfChild(heard(0)) == -1);
    QVERIFY(heard(0)->actionInterface()->actionNames().isEmpty());
    TestCommand usable("&Use");
    int used = 0;
    usable.work = [&used](bool) { return ++used > 0; };
    menu.addAction(&usable);
    QAccessibleInterface* const last = heard(2);
    for (const QString& name :
         {QAccessibleActionInterface::showMenuAction(), QAccessibleActionInterface::pressAction()})
      last->actionInterface()->doAction(name);
    QCOMPARE(used, 1);
    menu.removeAction(&usable);
    QVERIFY(!last->isValid() && last->rect().isEmpty() && last->text(QAccessible::Name).isEmpty());

    const QRect entry = menu.actionGeometry(f.other);
    QHelpEvent ask(QEvent::ToolTip, entry.center(), menu.mapToGlobal(entry.center()));
    QCoreApplication::sendEvent(&menu, &ask);
    const QPointer<ATooltipEx> shown = menu.findChild<ATooltipEx*>();
    QVERIFY(shown && shown->isVisible() && !QToolTip::isVisible());
    QTest::mouseMove(&menu, menu.actionGeometry(f.command).center());
    QVERIFY(!shown || !shown->isVisible());
  }
};

VELA_TEST_MAIN(ExplainTest)
#include "explain_test.moc"
