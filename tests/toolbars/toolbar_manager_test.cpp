// SPDX-License-Identifier: MIT
#include "toolbars_fixture.h"

#include <support/test_case.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/toolbar_manager.h>

#include <QLabel>
#include <QSignalSpy>

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
  void groupsHaveToolbarsOfTheirOwn() {
    Row row;
    const ToolBar* const bar = row.bar(1);
    QVERIFY(bar && bar->isHidden() && row.separator()->isHidden());
    QCOMPARE(bar->Area(), Qt::BottomToolBarArea);
    QCOMPARE(bar->Buttons().size(), 2);
    QVERIFY(!bar->IsAutoPositionEnabled() && !bar->IsShadowEnabled());
    QCOMPARE(bar->ButtonSize(), row.main->ButtonSize());

    const auto outer = namedGroup("outer", 1);
    const auto inner = namedGroup("inner", 2);
    outer->addCommand(inner, 5);
    row.manager->addDynamicCommandGroup(outer.get());
    row.manager->addDynamicCommandGroup(nullptr);
    QCOMPARE(row.window.findChildren<ToolBar*>(QString(), Qt::FindDirectChildrenOnly).size(), 1 + 3 + 2);
    QVERIFY(row.manager->findDynamicCommand(QStringLiteral("inner 1")));
    row.manager->removeDynamicCommand(inner->getCommand(QStringLiteral("inner 1")));
    QVERIFY(!row.manager->findDynamicCommand(QStringLiteral("inner 1")));
    row.manager->removeDynamicCommand(outer.get());
    Vela::Test::settle();
    QCOMPARE(row.window.findChildren<ToolBar*>(QString(), Qt::FindDirectChildrenOnly).size(), 1 + 3);
  }

  void rowStandsBehindTheMainToolbar_data() {
    QTest::addColumn<Qt::ToolBarArea>("area");
    QTest::newRow("horizontal") << Qt::TopToolBarArea;
    QTest::newRow("vertical") << Qt::LeftToolBarArea;
  }
  void rowStandsBehindTheMainToolbar() {
    QFETCH(Qt::ToolBarArea, area);
    Row row(area);
    row.main->SetButtonGroupSpacing(6);
    row.main->SetMainContentMargins({1, 2, 3, 4});
    row.main->setGeometry(20, 30, 100, 44);
    row.begin(0);
    row.begin(2);
    QTRY_VERIFY(!row.bar(2)->isHidden());
    const auto check = [&] {
      const QRect main = row.main->geometry();
      const QRect line = row.separator()->geometry();
      const bool horizontal = area == Qt::TopToolBarArea;
      QCOMPARE(line.topLeft(),
               horizontal ? QPoint(main.right() + 10, main.top()) : QPoint(main.left(), main.bottom() + 10));
      QCOMPARE(horizontal ? line.height() : line.width(), horizontal ? main.height() : main.width());
      const QRect first = row.bar(0)->geometry();
      QCOMPARE(first.topLeft(),
               horizontal ? QPoint(line.right() + 10, line.top()) : QPoint(line.left(), line.bottom() + 10));
      QCOMPARE(row.bar(2)->pos(), horizontal ? QPoint(first.right() + 6 + 3, first.top())
                                             : QPoint(first.left(), first.bottom() + 6 + 4));
    };
    check();
    row.main->setGeometry(60, 10, 140, 60);
    check();
    QVERIFY(row.bar(1)->isHidden());
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
    QTRY_VERIFY(!row.bar(1)->isHidden());
    QVERIFY(!row.separator()->isHidden());
    QCOMPARE(first.changes, 0);
    QCOMPARE(second.changes, 1);
    row.end(1);
    row.end(0);
    QTRY_VERIFY(row.bar(1)->isHidden());
    QVERIFY(row.separator()->isHidden());
    QCOMPARE(second.changes, 2);
  }

  void followsTheMainToolbar() {
    Row row;
    row.begin(0);
    row.begin(1);
    QTRY_VERIFY(!row.bar(1)->isHidden());
    row.main->setEnabled(false);
    QVERIFY(!row.bar(0)->isEnabled());
    row.main->setEnabled(true);
    QVERIFY(row.bar(0)->isEnabled());
    row.main->hide();
    QVERIFY(row.bar(0)->isHidden() && row.bar(1)->isHidden() && row.separator()->isHidden());
    row.end(1);
    row.begin(2);
    Vela::Test::settle();
    QVERIFY2(row.bar(2)->isHidden(), "there is nothing to stand beside");
    row.main->show();
    QVERIFY(!row.bar(0)->isHidden() && row.bar(1)->isHidden() && !row.bar(2)->isHidden());
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

  void toolbarHoldsWhatItsGroupHoldsWhenItBegins() {
    Row row;
    row.groups[0]->addCommand(namedCommand(QStringLiteral("late")), -1);
    row.groups[0]->removeCommand(QStringLiteral("group 0 0"));
    row.manager->removeDynamicCommand(row.groups[1]->getCommand(QStringLiteral("group 1 0")));
    row.groups.push_back(namedGroup("empty", 0));
    row.manager->addDynamicCommandGroup(row.groups[3].get());
    row.groups[3]->addCommand(namedCommand(QStringLiteral("first")), 0);
    for (const int i : {0, 1, 3})
      row.begin(i);
    QTRY_VERIFY(row.bar(3) && !row.bar(3)->isHidden());
    const QList<ToolButton*> buttons = row.bar(0)->Buttons();
    QCOMPARE(buttons.size(), 2);
    QCOMPARE(buttons.constFirst()->Action()->text(), QStringLiteral("late"));
    QVERIFY2(!row.manager->findDynamicCommand(QStringLiteral("group 1 0")), "it was removed by hand");
    QVERIFY(row.manager->findDynamicCommand(QStringLiteral("first")));
    row.manager->addDynamicCommandGroup(row.groups[1].get());
    QVERIFY(row.manager->findDynamicCommand(QStringLiteral("group 1 0")));
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
    QVERIFY(row.bar(0)->isHidden());
    row.begin(0);
    QTRY_VERIFY(!row.bar(0)->isHidden());
    QCOMPARE(row.bar(0)->Buttons().size(), 1);
    // And it is followed while it is in use.
    row.groups[0]->addCommand(namedCommand(QStringLiteral("late")), 9);
    QTRY_COMPARE(row.bar(0)->Buttons().size(), 2);
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
    QTest::mouseClick(row.window.windowHandle(), Qt::LeftButton, {},
                      button->mapTo(&row.window, button->rect().center()));
    Vela::Test::settle();
    QVERIFY(!button);
  }

  void rightToLeftRowGoesToTheLeft() {
    QWidget window;
    window.setLayoutDirection(Qt::RightToLeft);
    window.resize(900, 300);
    auto* const main = new ToolBar(&window, Qt::TopToolBarArea);
    main->AddAction(new QAction(QStringLiteral("open"), main));
    main->ShowMe();
    window.show();
    Vela::Test::settle();
    auto* const manager = new ToolbarManager(main); // for a bar that stands already
    manager->setGatheringTime(0);
    const auto group = namedGroup("group", 3);
    manager->addDynamicCommandGroup(group.get());
    manager->commandGroupBegan(group.get());
    auto* const line = window.findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    QTRY_VERIFY(!line->isHidden());
    const ToolBar* const bar = group->toolbar();
    QCOMPARE(main->geometry().left() - line->geometry().right(), 10);
    QCOMPARE(line->geometry().left() - bar->geometry().right(), 10);
    QCOMPARE(line->y(), main->y());
    QCOMPARE(bar->size(), bar->sizeHint());
  }
};

VELA_TEST_MAIN(ToolbarManagerTest)
#include "toolbar_manager_test.moc"
