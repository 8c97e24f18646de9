// SPDX-License-Identifier: MIT
#include "toolbars_fixture.h"

#include <support/input.h>
#include <support/screen_record.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>
#include <ui_base/toolbars/toolbar_manager.h>

#include <vector>

using namespace Vela::UiBase;

namespace {

/// A window with a main toolbar and three groups that come and go.
struct Row {
  explicit Row(Qt::ToolBarArea area = Qt::TopToolBarArea) {
    window.resize(900, 500);
    main = new ToolBar(&window, area);
    main->SetEnableAutoPosition(false);
    main->AddAction(new QAction(QStringLiteral("open"), main));
    manager = new ToolbarManager(main);
    manager->setGatheringTime(0);
    for (int i = 0; i < 3; ++i) {
      groups.push_back(namedGroup("group " + QByteArray::number(i), 2));
      manager->addDynamicCommandGroup(groups.back().get());
    }
    main->setGeometry(20, 30, 100, 44);
    window.show();
  }
  ToolBar* bar(int i) const {
    const auto bars = window.findChildren<ToolBar*>(QString(), Qt::FindDirectChildrenOnly);
    for (ToolBar* const each : bars) {
      if (each->property("CMDGROUP_PROP") == groups.at(i)->commandId())
        return each;
    }
    return nullptr;
  }
  QLabel* separator() const { return window.findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly); }
  void begin(int i) { manager->commandGroupBegan(groups.at(i).get()); }
  void end(int i) { manager->commandGroupEnded(groups.at(i).get()); }

  QWidget window;
  ToolBar* main;
  ToolbarManager* manager;
  std::vector<std::shared_ptr<CommandGroup>> groups;
};

/// Counts the showings and hidings of a widget.
class Visibility : public QObject {
public:
  explicit Visibility(QWidget* widget) { widget->installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    changes += event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent ? 1 : 0;
    return false;
  }
  int changes = 0;
};

} // namespace

class ToolbarManagerTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void rowStandsBehindTheMainToolbar_data() {
    QTest::addColumn<Qt::ToolBarArea>("area");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("horizontal") << Qt::TopToolBarArea << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::TopToolBarArea << Qt::RightToLeft;
    QTest::newRow("vertical") << Qt::LeftToolBarArea << Qt::LeftToRight;
  }
  void rowStandsBehindTheMainToolbar() {
    QFETCH(Qt::ToolBarArea, area);
    QFETCH(Qt::LayoutDirection, direction);
    Row row(area);
    row.window.setLayoutDirection(direction);
    row.begin(0);
    row.begin(2);
    Vela::Test::settle();
    row.main->setGeometry(360, 10, 140, 60);
    VELA_COMPARE_SCREEN(QStringLiteral("row of toolbars, ") + QTest::currentDataTag(), Vela::Test::AlsoDark);
  }

  void onlyTheLastOfABurstCounts() {
    Row row;
    const Visibility first(row.bar(0));
    const Visibility second(row.bar(1));
    row.begin(0);
    row.end(0);
    row.begin(1);
    row.end(1);
    row.begin(1);
    Vela::Test::settle();
    QCOMPARE(first.changes, 0);
    QCOMPARE(second.changes, 1);
    row.end(1);
    row.end(0);
    Vela::Test::settle();
    QCOMPARE(second.changes, 2);
  }

  void followsTheMainToolbar() {
    Row row;
    row.begin(0);
    row.begin(1);
    QTRY_VERIFY(!row.bar(1)->isHidden());
    row.main->setEnabled(false);
    QVERIFY(!row.bar(0)->isEnabled());
    row.main->hide();
    QVERIFY(row.bar(0)->isHidden() && row.bar(1)->isHidden() && row.separator()->isHidden());
    row.end(1);
    row.begin(2);
    Vela::Test::settle();
    QVERIFY2(row.bar(2)->isHidden(), "there is nothing to stand beside");
    row.main->show();
    QVERIFY(!row.bar(0)->isHidden() && row.bar(1)->isHidden() && !row.bar(2)->isHidden());
    QWidget other;
    row.main->setParent(&other);
    other.show();
    row.main->show();
    QVERIFY(!row.bar(0) && !row.separator() && other.findChildren<ToolBar*>().size() == 4);
  }

  void longRowEndsInTheWindow() {
    Row row;
    row.begin(0);
    QTRY_VERIFY(!row.bar(0)->isHidden());
    row.window.resize(row.bar(0)->x() + row.bar(0)->minimumSizeHint().width() + 1, 400);
    QVERIFY(row.bar(0)->geometry().right() < row.window.width());
    row.window.resize(900, 400);
    QCOMPARE(row.bar(0)->size(), row.bar(0)->sizeHint());
  }

  void groupsMayDieBeforeTheyAreShown() {
    Row row;
    row.begin(0);
    row.groups[0].reset();
    row.begin(1);
    QTRY_VERIFY(!row.bar(1)->isHidden());
    const QPointer<ToolBar> bar = row.bar(1);
    delete bar; // by hand
    row.end(1);
    Vela::Test::settle();
    row.begin(2);
    delete row.main; // and the manager with it
    Vela::Test::settle();
    QVERIFY(row.window.findChildren<ToolBar*>().isEmpty() && !row.separator());
  }

  void groupTakesItsToolbarAlong() {
    Row row;
    const auto kept = row.groups[0]->commandBag().getSharedCommand(QStringLiteral("group 0 0"));
    row.begin(0);
    QTRY_VERIFY(!row.separator()->isHidden());
    row.end(0);
    const QPointer<ToolBar> bar = row.bar(0);
    row.groups[0].reset(); // before that is gathered; one of its commands lives on
    QVERIFY(bar->isHidden() && row.separator()->isHidden());
    Vela::Test::settle();
    QVERIFY(!bar);
    // A new group under the same identifier has nothing of the old one.
    row.groups[0] = namedGroup("group 0", 1);
    row.begin(0);
    Vela::Test::settle();
    QVERIFY(!row.bar(0));
    row.manager->addDynamicCommandGroup(row.groups[0].get());
    row.begin(0);
    QTRY_VERIFY(!row.bar(0)->isHidden());
    QCOMPARE(row.bar(0)->Buttons().size(), 1);
    const auto twin = namedGroup("group 0", 3); // nothing of the one before
    row.manager->addDynamicCommandGroup(twin.get());
    row.manager->commandGroupBegan(twin.get());
    QTRY_COMPARE(row.bar(0)->Buttons().size(), 3);
    row.groups[0] = twin; // the one before dies
    QVERIFY(!row.bar(0)->isHidden());
    row.manager->removeDynamicCommand(twin.get());
    row.manager->addDynamicCommandGroup(twin.get()); // at once: not the toolbar that is to go
    row.manager->commandGroupBegan(twin.get());
    Vela::Test::settle();
    QVERIFY(row.bar(0) && !row.bar(0)->isHidden());
  }

  void whatIsRemovedStaysAwayUntilItsGroupIsAdded() {
    Row row;
    const auto nested = namedGroup("nested", 2);
    row.groups[0]->addCommand(nested, 9);
    const auto addAndBegin = [&] {
      row.manager->addDynamicCommandGroup(row.groups[0].get());
      for (CommandGroup* const group : {row.groups[0].get(), nested.get()})
        row.manager->commandGroupBegan(group);
      Vela::Test::settle();
    };
    addAndBegin();
    nested->setToolTip("Renamed");
    row.bar(0)->AddAction(new QAction("menu", &row.window), new QSpinBox(&row.window))->ShowMenu();
    CommandBase* const all[] = {nested->getCommand("nested 1"), row.groups[0]->getCommand("group 0 0"),
                                row.groups[0].get()};
    for (CommandBase* const command : all) {
      row.manager->removeDynamicCommand(command);
      QVERIFY(!row.manager->findDynamicCommand(command->commandId()));
      for (CommandGroup* const group : {row.groups[0].get(), nested.get()})
        row.manager->commandGroupBegan(group);
      Vela::Test::settle();
    }
    QVERIFY(!row.bar(0));
    addAndBegin();
    QVERIFY(row.manager->findDynamicCommand("group 0 0") && row.manager->findDynamicCommand("nested 1"));
  }

  void toolbarMayGoInAClickOnItself_data() {
    QTest::addColumn<bool>("manager");
    QTest::newRow("group removed") << false;
    QTest::newRow("manager deleted") << true;
  }
  void toolbarMayGoInAClickOnItself() {
    QFETCH(bool, manager);
    Row row;
    row.begin(0);
    QTRY_VERIFY(!row.bar(0)->isHidden());
    const QPointer<ToolButton> button = row.bar(0)->Buttons().at(0);
    connect(row.groups[0]->getCommand("group 0 0"), &QAction::triggered, &row.window, [&] {
      if (manager)
        delete row.manager;
      else
        row.manager->removeDynamicCommand(row.groups[0].get());
    });
    Vela::Test::click(*button);
    Vela::Test::settle();
    QVERIFY(!button);
  }

  void oneBarMayEndAnotherThatFollowsTheMainToolbar() {
    Row row;
    for (int i = 0; i < 3; ++i)
      row.begin(i);
    Vela::Test::settle();
    new EndsAnother(row.bar(0), QEvent::EnabledChange, row.bar(1));
    row.main->setEnabled(false);
    QVERIFY(!row.bar(1));
    QVERIFY(!row.bar(0)->isEnabled() && !row.bar(2)->isEnabled());
  }
};

VELA_TEST_MAIN(ToolbarManagerTest)
#include "toolbar_manager_test.moc"
