// SPDX-License-Identifier: MIT
#include "toolbars_fixture.h"

#include <support/test_case.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button_with_button_menu.h>

#include <QGraphicsDropShadowEffect>
#include <QSignalSpy>

using namespace Vela::UiBase;
using Taren::Objects::createShared;
using Vela::Test::settle;

namespace {

using SharedGroup = std::shared_ptr<CommandGroup>;

QIcon anyIcon() {
  QPixmap pixmap(24, 24);
  pixmap.fill(Qt::red);
  return pixmap;
}

SharedGroup group(const QString& name, const QIcon& icon = {}) {
  auto made = createShared<CommandGroup>(QString(), name, name);
  made->setIcon(icon);
  return made;
}

QStringList names(const ToolBar& bar) {
  QStringList all;
  const auto buttons = bar.Buttons();
  for (const ToolButton* const button : buttons)
    all.append(button->Action() ? button->text() : QLatin1Char('>') + button->objectName());
  return all;
}

QRect inBar(const ToolBar& bar, const ToolButton& button) {
  return {button.mapTo(&bar, QPoint()), button.size()};
}

class CountingBar : public ToolBar {
public:
  using ToolBar::ToolBar;
  int paints = 0;

protected:
  void paintEvent(QPaintEvent* event) override {
    ++paints;
    ToolBar::paintEvent(event);
  }
};

class CountingHandler : public ToolButton::IToolButtonCallbackHandler {
public:
  bool operator()(QAction*) override {
    ++asked;
    return allowed;
  }
  int asked = 0;
  bool allowed = true;
};

} // namespace

class ToolBarTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void followsItsEdgeOfTheParent() {
    QWidget window;
    window.resize(400, 300);
    ToolBar bar(&window, Qt::BottomToolBarArea);
    bar.SetCentered(true);
    bar.SetOffset({0, 6});
    const auto commands = namedGroup("view", 3);
    bar.AddCommandGroup(commands.get());
    window.show();
    QTRY_COMPARE(bar.geometry().bottom(), 300 - 1 - 6);
    window.resize(600, 200);
    QTRY_COMPARE(bar.geometry().bottom(), 200 - 1 - 6);
    QVERIFY(std::abs(bar.geometry().center().x() - 299) <= 1);
    // It is as large as its buttons need, also after some came.
    const int before = bar.width();
    commands->addCommand(namedCommand(QStringLiteral("late")), 9);
    QTRY_VERIFY(bar.width() > before);
    QCOMPARE(bar.size(), bar.sizeHint());
    bar.hide();
    QSignalSpy laidOut(&bar, &ToolBar::LayoutChanged);
    commands->addCommand(namedCommand(QStringLiteral("while hidden")), 9);
    QTRY_VERIFY(!laidOut.isEmpty());
    bar.show();
    QCOMPARE(bar.size(), bar.sizeHint());
  }

  void announcesItsSlides() {
    QWidget window;
    window.resize(400, 300);
    ToolBar bar(&window, Qt::TopToolBarArea);
    bar.SetAnimationDuration(20);
    window.show();
    QSignalSpy shown(&bar, &ToolBar::ShowAnimationFinished);
    QSignalSpy hidden(&bar, &ToolBar::HideAnimationFinished);
    bar.ShowAnimated();
    QVERIFY(bar.InShowMode());
    QTRY_COMPARE(shown.count(), 1);
    bar.HideAnimated();
    QVERIFY(!bar.InShowMode());
    QTRY_COMPARE(hidden.count(), 1);
    bar.ShowMe();
    bar.hide();
    QVERIFY(!bar.InShowMode());
    bar.show();
    QVERIFY2(!bar.InShowMode(), "the mode was forgotten");
    bar.HideMe(true);
    QVERIFY(bar.HiddenByRequest());
    connect(&bar, &ToolBar::ShowAnimationFinished, &bar, &ToolBar::HideAnimated);
    bar.ShowAnimated();
    QTRY_COMPARE(hidden.count(), 2);
    QVERIFY(bar.isHidden() && !bar.IsLocked());
  }

  void laysGroupsAndButtonsOutInOrder_data() {
    QTest::addColumn<Qt::ToolBarArea>("area");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<int>("columns");
    QTest::newRow("row") << Qt::TopToolBarArea << Qt::LeftToRight << 0;
    QTest::newRow("row, right to left") << Qt::BottomToolBarArea << Qt::RightToLeft << 0;
    QTest::newRow("column") << Qt::LeftToolBarArea << Qt::LeftToRight << 0;
    QTest::newRow("grid") << Qt::RightToolBarArea << Qt::LeftToRight << 2;
  }
  void laysGroupsAndButtonsOutInOrder() {
    QFETCH(Qt::ToolBarArea, area);
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(int, columns);
    QWidget window;
    window.resize(500, 500);
    window.setLayoutDirection(direction);
    ToolBar bar(&window, area);
    bar.SetButtonSize({40, 30});
    bar.SetButtonSpacing(3);
    bar.SetButtonGroupSpacing(11);
    bar.SetMainContentMargins({6, 6, 6, 6});
    bar.SetGroupContentMargins({2, 2, 2, 2});
    if (columns > 0)
      bar.SetGridLayout(columns);
    const auto first = namedGroup("a", 3);
    const auto second = namedGroup("b", 2);
    bar.AddCommandGroup(first.get());
    bar.AddCommandGroup(second.get());
    window.show();
    settle();
    QCOMPARE(names(bar), QStringList({"a 0", "a 1", "a 2", "b 0", "b 1"}));
    QList<QRect> at;
    const auto buttons = bar.Buttons();
    for (const ToolButton* const button : buttons)
      at.append(inBar(bar, *button));
    const int edge = 6 + 2;
    const bool across = columns > 0 || bar.Orientation() == Qt::Horizontal;
    if (direction == Qt::RightToLeft)
      QVERIFY(at[0].right() == bar.width() - 1 - edge && at[0].left() - at[1].right() == 1 + 3);
    else
      QVERIFY(at[0].topLeft() == QPoint(edge, edge) &&
              (across ? at[1].left() - at[0].right() : at[1].top() - at[0].bottom()) == 1 + 3);
    if (bar.Orientation() == Qt::Vertical)
      QCOMPARE(at[3].top() - at[2].bottom(), 1 + 2 + 11 + 2);
    if (columns > 0)
      QCOMPARE(at[2].topLeft(), QPoint(at[0].left(), at[0].bottom() + 1 + 3));
  }

  void hasNoLayoutAwayFromTheEdges() {
    ToolBar bar(nullptr, Qt::NoToolBarArea);
    bar.AddAction(new QAction(QStringLiteral("one"), &bar));
    QCOMPARE(bar.sizeHint(), QSize(8, 8)); // the margins
    bar.SetGridLayout(2);
    QVERIFY(bar.sizeHint().width() > 8);
  }

  void showsWhatBecomesOfItsGroups() {
    QWidget window;
    window.resize(600, 400);
    ToolBar bar(&window, Qt::TopToolBarArea);
    const auto top = namedGroup("a", 2);
    const auto inner = group("menu", anyIcon());
    const auto deep = group("deep", anyIcon());
    inner->addCommand(namedCommand(QStringLiteral("m")), 0);
    inner->addCommand(deep, 1);
    deep->addCommand(namedCommand(QStringLiteral("d")), 0);
    top->addCommand(inner, 1);
    const SharedGroup single(CommandGroup::WrapSingleCmdIntoVirtualCmdGroup(
        new NamedCommand(QStringLiteral("v")), 0, QStringLiteral("single"), QString()));
    top->addCommand(single, 2);
    bar.AddCommandGroup(top.get());
    window.show();
    QCOMPARE(names(bar), QStringList({"a 0", "a 1", ">menu", "v"}));
    QCOMPARE(bar.FindOneButton(QStringLiteral("d"), false), nullptr);
    ToolButton* const nested = bar.FindOneButton(QStringLiteral("d"), true);
    QVERIFY(nested && nested->OwningToolBar()->GetBaseToolBar() == &bar);
    QCOMPARE(bar.FindOneButton(inner->commandId(), false)->property(CMDID_PROP).toString(),
             inner->commandId());
    QCOMPARE(bar.MenuButtons(true).size(), 2);
    QCOMPARE(inner->toolbar(), bar.MenuButtons(false).constFirst()->GetMenu());

    top->addCommand(namedCommand(QStringLiteral("first")), -1);
    top->addCommand(namedCommand(QStringLiteral("middle")), 0);
    deep->addCommand(namedCommand(QStringLiteral("d2")), 0);
    top->removeCommand(QStringLiteral("a 1"));
    QTRY_COMPARE(names(bar), QStringList({"first", "a 0", "middle", ">menu", "v"}));
    QVERIFY(bar.FindOneButton(QStringLiteral("d2"), true));
    top->setCommandRank(QStringLiteral("a 0"), 7);
    QTRY_COMPARE(names(bar), QStringList({"first", "middle", ">menu", "a 0", "v"}));

    const auto d = deep->commandBag().getSharedCommand(QStringLiteral("d"));
    bar.RemoveCommand(d.get());
    QVERIFY(!bar.FindOneButton(QStringLiteral("d"), true));
    bar.RemoveCommand(single.get());
    bar.RemoveCommand(inner.get());
    QCOMPARE(names(bar), QStringList({"first", "middle", "a 0"}));
    bar.RemoveCommand(top.get());
    QVERIFY(bar.Buttons().isEmpty());
    QCOMPARE(top->toolbar(), nullptr);
  }

  void copiesAllParameters() {
    ToolBar bar(7, true, nullptr, Qt::TopToolBarArea);
    ToolBarParams looks = bar.Params();
    looks.buttonSize = {50, 51};
    looks.iconSize = {31, 32};
    looks.buttonStyle = Qt::ToolButtonTextUnderIcon;
    looks.buttonStyleSheet = QStringLiteral("QToolButton { color: red }");
    looks.tooltipGroup = QStringLiteral("group");
    bar.SetParams(looks);
    bar.GetShadow()->setBlurRadius(33);
    ToolBar copy(nullptr, Qt::LeftToolBarArea);
    ToolButton* const button = copy.AddAction(new QAction(QStringLiteral("one"), &copy));
    copy.CopyAllParametersFrom(&bar);
    QCOMPARE(copy.Params(), looks);
    QCOMPARE(copy.Area(), Qt::LeftToolBarArea);
    // And applies them to what is there.
    QCOMPARE(button->minimumSize(), QSize(50, 51));
    QCOMPARE(button->iconSize(), QSize(31, 32));
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    QCOMPARE(button->styleSheet(), bar.ButtonStyleSheet());
    copy.EnableShadow(false);
    QVERIFY(!copy.GetShadow() && !copy.graphicsEffect());
    copy.EnableShadow(true);
    QCOMPARE(copy.GetShadow()->blurRadius(), 33);
  }

  void sizesButtonsByTheirIcons() {
    ToolBar bar(nullptr, Qt::TopToolBarArea);
    const ToolButton* const button = bar.AddAction(new QAction(anyIcon(), QStringLiteral("one"), &bar));
    bar.SetIconSize({16, 16});
    bar.SetButtonSize({0, 0});
    QCOMPARE(button->minimumSize(), QSize(24, 24));
    QCOMPARE(button->iconSize(), QSize(16, 16));
    bar.SetIconSize({0, 0});
    QCOMPARE(button->iconSize(), QSize(24, 24));
  }

  void asksHandlersOncePerTurnHoweverManyCommandsChange() {
    QWidget window;
    window.resize(800, 300);
    CountingBar bar(&window, Qt::TopToolBarArea);
    const auto commands = namedGroup("a", 20);
    bar.AddCommandGroup(commands.get());
    CountingHandler handler;
    CommandBase* const watched = commands->commandBag().commandAt(3);
    bar.AddCallbackHandler(&handler, watched);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    settle();
    handler.asked = 0;
    bar.paints = 0;
    for (int i = 0; i < 20; ++i)
      commands->commandBag().commandAt(i)->setEnabled(false);
    QCOMPARE(handler.asked, 0);
    settle();
    QCOMPARE(handler.asked, 1);
    QVERIFY(watched->isEnabled());
    QVERIFY2(bar.paints <= 2, qPrintable(QString::number(bar.paints)));
    handler.allowed = false;
    bar.EnableActions();
    QVERIFY(!watched->isEnabled());
  }

  void hidesTheButtonsOfHiddenActions() {
    QWidget window;
    window.resize(400, 300);
    ToolBar bar(&window, Qt::TopToolBarArea);
    QAction one(QStringLiteral("one"));
    QAction two(QStringLiteral("two"));
    two.setVisible(false);
    bar.AddAction(&one, QStringLiteral("a"));
    bar.AddAction(&two, QStringLiteral("b"));
    window.show();
    settle();
    QVERIFY(bar.Buttons()[0]->isVisible() && bar.Buttons()[1]->isHidden());
    const int width = bar.width();
    two.setVisible(true);
    QTRY_VERIFY(bar.width() > width + bar.ButtonSize().width());
    two.setVisible(false);
    QTRY_COMPARE(bar.width(), width);
  }

  void buttonOfAGroupShowsTheGroup() {
    QWidget window;
    window.resize(400, 300);
    ToolBar bar(&window, Qt::TopToolBarArea);
    const auto top = namedGroup("a", 1);
    const auto inner = group("menu", anyIcon());
    inner->addCommand(namedCommand(QStringLiteral("m")), 0);
    top->addCommand(inner, 1);
    bar.AddCommandGroup(top.get());
    window.show();
    settle();
    ToolButton* const button = bar.Buttons()[1];
    QPixmap blue(24, 24);
    blue.fill(Qt::blue);
    inner->setText(QStringLiteral("Ot&her"));
    inner->setIcon(blue);
    inner->setToolTip(QStringLiteral("Another tip"));
    settle();
    QVERIFY(button->text() == QStringLiteral("Other") && button->shortcut().isEmpty());
    QCOMPARE(button->icon().pixmap(24).toImage().pixelColor(5, 5), QColor(Qt::blue));
    QCOMPARE(button->toolTip(), QStringLiteral("Another tip"));
    inner->setEnabled(false);
    QVERIFY(!button->isEnabled());
    CountingHandler handler;
    bar.AddCallbackHandler(&handler, inner.get());
    bar.EnableActions();
    QVERIFY(handler.asked == 1 && inner->isEnabled() && button->isEnabled());
    bar.RemoveCallbackHandler(&handler);
    bar.EnableActions();
    QCOMPARE(handler.asked, 1);
    // What dies with its group goes, though a command of it lives on.
    const auto kept = top->commandBag().getSharedCommand(QStringLiteral("a 0"));
    top->removeCommand(inner.get());
    auto dying = namedGroup("dying", 0);
    dying->addCommand(kept, 0);
    ToolBar other(&window, Qt::BottomToolBarArea);
    other.AddCommandGroup(dying.get());
    QCOMPARE(names(other), QStringList("a 0"));
    dying.reset();
    settle();
    QVERIFY(other.Buttons().isEmpty());
  }
};

VELA_TEST_MAIN(ToolBarTest)
#include "tool_bar_test.moc"
