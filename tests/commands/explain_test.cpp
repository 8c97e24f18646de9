// SPDX-License-Identifier: MIT
#include "execution_fixture.h"

#include <support/test_case.h>
#include <ui_base/commands/command_group.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button.h>
#include <ui_base/tooltips/a_tooltip_ex.h>
#include <ui_base/tooltips/tooltip_object.h>

#include <QAccessible>
#include <QActionGroup>
#include <QHelpEvent>
#include <QMenu>
#include <QStyleFactory>
#include <QToolTip>

using namespace Vela::UiBase;
using Taren::Core::NormalQoS;

namespace {

const QString other = QStringLiteral("other");
const QString isRunning = QStringLiteral("\"work\" is running.");

QStringList textsOf(const QList<CommandCause>& causes) {
  QStringList texts;
  for (const CommandCause& cause : causes)
    texts += cause.text;
  return texts;
}

CommandContext disabling(const QString& id) {
  CommandContext context;
  context.overwrite(id, {State::Off, State::Keep});
  return context;
}

/// The commands of the fixture, of which the other one knows its controller.
class ExplainFixture : public AsyncFixture {
public:
  ExplainFixture() {
    other->setViewController(controller);
    other->setToolTip(QStringLiteral("Does another thing"));
  }
  QStringList causes() const { return textsOf(controller->explain(QStringLiteral("other"))); }
};

void tellsTheCause(bool tooltips, const QString& text) {
  ExplainFixture f;
  const std::unique_ptr<QStyle> windows(QStyleFactory::create("Windows"));
  QMenu menu;
  menu.setStyle(windows.get()); // whose keys go to disabled entries too
  menu.setToolTipsVisible(tooltips);
  menu.addAction(f.other);
  f.command->trigger();
  f.drain();
  menu.popup({20, 20});
  const QPoint point = menu.actionGeometry(f.other).center();
  QHelpEvent help(QEvent::ToolTip, point, menu.mapToGlobal(point));
  QCoreApplication::sendEvent(&menu, &help);
  QCOMPARE(QToolTip::text(), text);
  const QAccessibleInterface* const heard = QAccessible::queryAccessibleInterface(&menu)->child(0);
  QCOMPARE(heard->text(QAccessible::Description), text);
  QCOMPARE(heard->text(QAccessible::Name), f.other->text());
  QVERIFY(heard->state().disabled && heard->parent()->object() == &menu);
  QCOMPARE(heard->rect().center(), menu.mapToGlobal(point));

  f.command->setText("&work");
  menu.addAction(f.command);
  QToolTip::hideText();
  QTRY_VERIFY(!QToolTip::isVisible());
  QTest::keyClick(menu.windowHandle(), Qt::Key_Down);
  QTRY_COMPARE(QToolTip::text(), text);
  QTest::keyClick(menu.windowHandle(), Qt::Key_Down);
  QTRY_VERIFY(!QToolTip::isVisible());
  QAccessibleInterface* const enabled = QAccessible::queryAccessibleInterface(&menu)->child(1);
  QCOMPARE(enabled->text(QAccessible::Name), QString("work"));
  QVERIFY(enabled->state().focused && !enabled->state().disabled);
  const int runs = f.command->runs().size();
  enabled->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  QCOMPARE(f.command->runs().size(), runs + 1);
  menu.hide();
}

} // namespace

/// Why a command cannot be used, and where users hear of it.
class ExplainTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void causesAreTold_data() {
    using Disable = std::function<void(ExplainFixture&)>;
    QTest::addColumn<Disable>("disable");
    QTest::addColumn<QStringList>("causes");
    const auto row = [](const char* name, const Disable& disable, const QStringList& causes) {
      QTest::newRow(name) << disable << causes;
    };
    const QString unavailable = QStringLiteral("Not available at present.");
    row("enabled", [](auto&) {}, {});
    row("run", [](auto& f) { f.command->trigger(); }, {isRunning});
    row("run that has ended",
        [](auto& f) {
          f.command->trigger();
          f.dispatcher.runAll();
        },
        {});
    row("nobody holds", [](auto& f) { f.controller->pushContext(disabling(other)); },
        {QStringLiteral("Something else is under way.")});
    row("itself", [](auto& f) { f.other->setEnabled(false); }, {unavailable});
    row("itself and a run",
        [](auto& f) {
          f.other->setEnabled(false);
          f.command->trigger();
        },
        {isRunning, unavailable});
    row("enabled by the application all the same",
        [](auto& f) {
          f.command->trigger();
          f.drain();
          f.other->setEnabled(true);
        },
        {});
    row("the application, with a reason",
        [](auto& f) {
          f.command->trigger();
          f.controller->setGroundState(other, {State::Off, State::Keep}, QStringLiteral("No scanner."));
          f.drain();
        },
        {isRunning, QStringLiteral("No scanner.")});
    row("its group",
        [](auto& f) {
          auto* const group = new CommandGroup(QString(), QStringLiteral("Shading"), QStringLiteral("g"));
          f.other->setCheckable(true);
          group->addCommand(f.other, 0);
          f.controller->addCommand(group);
          group->groupActionGroup()->setEnabled(false);
        },
        {QStringLiteral("The group \"Shading\" is not available.")});
    row("not here", [](auto& f) { f.controller->removeCommand(other); }, {});
  }

  void causesAreTold() {
    QFETCH(std::function<void(ExplainFixture&)>, disable);
    QFETCH(QStringList, causes);
    ExplainFixture f;
    disable(f);
    QCOMPARE(f.causes(), causes);
    if (f.controller->findCommand(other))
      QCOMPARE(f.other->whyUnavailable(), causes.value(0));
  }

  void tooltipOfAButtonEndsWithTheCause() {
    ExplainFixture f;
    f.view->resize(400, 300);
    ToolBar bar(f.view, Qt::TopToolBarArea);
    ToolButton* const button = bar.AddAction(f.other);
    f.view->show();
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(f.view));
    TooltipObject* const tooltip = button->GetTooltipObject();
    const auto shown = [tooltip] {
      tooltip->ShowTooltip();
      return tooltip->TooltipControl()->accessibleName();
    };
    const QString text = QStringLiteral("Does another thing");
    QCOMPARE(shown(), text);
    tooltip->ForceHideTooltip();

    f.command->trigger();
    f.drain();
    QVERIFY(!button->isEnabled());
    const QString explained = text + QLatin1Char('\n') + isRunning;
    QCOMPARE(shown(), explained);
    QCOMPARE(button->accessibleDescription(), explained);
    QCOMPARE(f.other->toolTip(), text);
    QCOMPARE(tooltip->Text(), text);
    {
      const ContextHold scan =
          f.controller->holdContext(disabling(other), ContextHolder::because(QStringLiteral("Scanning.")));
      QCoreApplication::sendPostedEvents(); // another cause, and nothing else
      QCOMPARE(button->accessibleDescription(), text + QStringLiteral("\nScanning."));
      QCOMPARE(tooltip->TooltipControl()->accessibleName(), button->accessibleDescription());
    }
    QCoreApplication::sendPostedEvents();
    QCOMPARE(button->accessibleDescription(), explained);
    f.dispatcher.runAll(); // while it is shown
    QVERIFY(button->isEnabled());
    QCOMPARE(tooltip->TooltipControl()->accessibleName(), text);
    QCOMPARE(button->accessibleDescription(), text);
  }

  void menuEntriesTellTheCause() {
    tellsTheCause(true, "Does another thing\n" + isRunning);
    tellsTheCause(false, isRunning);
  }
};

VELA_TEST_MAIN(ExplainTest)
#include "explain_test.moc"
