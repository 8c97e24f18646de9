// SPDX-License-Identifier: MIT
#include "menu_fixture.h"

#include <support/rows.h>
#include <support/screen_record.h>

using namespace Vela::UiBase;
using Vela::Test::settle;

/// What a menu bar is built of, and what becomes of it.
class MenuBuilderTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void shortcutsLiveWhileTheBarIsHidden() {
    Screen screen;
    QSignalSpy undone(&screen.undo, &QAction::triggered);
    screen.undo.setShortcut(Qt::CTRL | Qt::Key_U);
    AppMenuItemSpecifier about = entry("about", "&About", SLOT(sign()));
    about.shortcut = Qt::Key_F1;
    screen.builder->AddMenuBarItem(QSharedPointer<AppMenuItemSpecifier>::create(about));
    QAction* const late = screen.menu("recent")->addAction(id("Two"), QKeySequence(Qt::CTRL | Qt::Key_2));
    QSignalSpy recent(late, &QAction::triggered);
    QVERIFY(screen.isReady());
    for (const bool hidden : {false, true}) {
      if (hidden)
        screen.builder->HideMe();
      settle();
      screen.key(Qt::Key_U, Qt::ControlModifier);
      screen.key(Qt::Key_2, Qt::ControlModifier);
      screen.key(Qt::Key_F1);
    }
    QCOMPARE(undone.count(), 2);
    QCOMPARE(recent.count(), 2);
    QCOMPARE(screen.receiver.calls.count(id("sign")), 2);
    screen.builder->SetButtonEnabled(id("edit"), false);
    screen.menu("recent")->setEnabled(false);
    settle();
    screen.key(Qt::Key_U, Qt::ControlModifier);
    screen.key(Qt::Key_2, Qt::ControlModifier);
    QVERIFY2(undone.count() == 2 && recent.count() == 2, "those of disabled items and menus do not");
  }

  void shortcutsLiveWhileWhatTheBarStandsInIsHidden() {
    QMainWindow window;
    auto* const header = new QWidget;
    Builder builder(id("bar"), &window, header);
    header->setParent(&window); // and its shortcuts with it
    QAction save;
    save.setShortcut(Qt::CTRL | Qt::Key_S);
    QSignalSpy saved(&save, &QAction::triggered);
    builder.AddMenuBarItem(id("file"), QIcon(), id("&File"));
    builder.AddDropDownMenu(id("file"), {&save}, nullptr);
    builder.Start();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    header->hide();
    settle();
    QTest::keyClick(window.windowHandle(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(saved.count(), 1);
  }

  void takingOverAMenuBarKeepsEveryAction() {
    QMainWindow window;
    QMenuBar* const own = window.menuBar();
    QAction* const zoom = own->addMenu(id("&View"))->addAction(id("Zoom"));
    QAction* const turn = own->addMenu(id("&View"))->addAction(id("Turn"));
    own->addSeparator();
    QAction* const info = own->addAction(id("&Info"));
    Builder builder(id("bar"), &window, &window);
    builder.AppendMenuBarItems(own);
    builder.AppendMenuBarItems(own);
    builder.Start(); // the window deletes the menu bar that it had
    settle();
    QVERIFY(builder.GetMenu(id("View"))->actions().contains(zoom));
    QVERIFY(builder.GetMenu(id("View 2"))->actions().contains(turn));
    QVERIFY(!builder.GetMenuBarItem(id("View 3")));
    QCOMPARE(builder.MenuBar()->findChildren<QFrame*>(id("separator")).size(), 1);
    QSignalSpy asked(info, &QAction::triggered);
    builder.GetMenuBarItem(id("Info"))->click();
    QCOMPARE(asked.count(), 1);
  }

  void itemsMayBeAddedWhileOneIsAdded() {
    Screen screen;
    class Filter : public QObject {
    public:
      bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::EnabledChange && left-- > 0)
          builder->AddMenuBarItem(QString::number(left), QIcon(), id("More"));
        return false;
      }
      Builder* builder = nullptr;
      int left = 100;
    } filter;
    filter.builder = screen.builder;
    screen.builder->InstallEventFilter(&filter);
    AppMenuItemSpecifier off = entry("off", "Off", SLOT(open()));
    off.enabled = false;
    for (int i = 0; i < 40; ++i) {
      off.name = id("off") + QString::number(i);
      screen.builder->AddMenuBarItem(QSharedPointer<AppMenuItemSpecifier>::create(off));
      QVERIFY(!screen.builder->GetMenuBarItem(off.name)->isEnabled());
    }
    QVERIFY(filter.left < 100);
  }

  void itemsFollowTheActionsOfAMenuBar() {
    Screen screen;
    QVERIFY(screen.isReady());
    auto* const own = new QMenuBar;
    auto* const about = new QAction(id("&About"), &screen.receiver);
    own->addAction(about);
    QSignalSpy asked(about, &QAction::triggered);
    screen.builder->AppendMenuBarItems(own);
    delete own;
    screen.click("About");
    QCOMPARE(asked.count(), 1);
    about->setEnabled(false);
    about->setText(id("&Info"));
    QVERIFY(!screen.item("About")->isEnabled());
    QCOMPARE(screen.item("About")->text(), id("&Info"));
    about->setCheckable(true);
    connect(screen.item("About"), &QToolButton::toggled, &screen.receiver, [about] { delete about; });
    about->setChecked(true);
    QVERIFY(screen.item("About")->isHidden());
  }

  void whatIsAddedIsSeenAndWorks() {
    Screen screen;
    Builder& builder = *screen.builder;
    QPixmap dot(16, 16);
    dot.fill(Qt::red);
    AppMenuItemSpecifier sign = entry("sign", "&Sign", SLOT(sign()));
    sign.icon = dot;
    sign.tooltip = id("Signs it");
    sign.shortcut = Qt::Key_F2;
    sign.checkable = sign.checked = true;
    AppMenuItemSpecifier more = AppMenuItemSpecifier::SubMenu(id("more"), id("&More"), {sign});
    more.enabled = false;
    const auto shared = QSharedPointer<AppMenuItemSpecifier>::create(sign);
    builder.AddMenuBarItem(shared, id("Sign here"), id("color: red"));
    sign.shortcut = Qt::Key_F3;
    QVERIFY(builder.AddDropDownMenu(id("sign"), {sign, more, AppMenuItemSpecifier::OfAction(&screen.undo)}));
    QVERIFY(builder.AddSubMenu(id("sign"), entry("two", "Two"), {more, sign}));
    QVERIFY(builder.AddSubMenu(id("two"), entry("three", "Three"), {&screen.undo, nullptr, &screen.redo}));
    QVERIFY(builder.AppendMenuItem(id("two"), AppMenuItemSpecifier::Separator()));
    QVERIFY(builder.AddSeparator() && !builder.AddSeparator());
    const AppMenuToggleItemSpecifier states{
        {id("a"), id("Off")}, {id("b"), id("On"), id("It is on")}, false, SLOT(sign())};
    builder.AddMenuBarToggleItem(id("turn"), QSharedPointer<AppMenuToggleItemSpecifier>::create(states));
    QVERIFY(builder.AddSeparator(false, 20));
    builder.AddMenuBarToggleTextItem(id("text"), id("Less"), id("More"), SLOT(sign()));
    builder.AddMenuBarToggleTextItem(id("zero"), id("No"), id("Yes"), SLOT(sign()), 0);
    QVERIFY(builder.AddSeparator(false, -1));
    builder.InsertMenuBarItem(2, id("icon"), QIcon(dot), {}, id("An icon"), id("Icon"));
    builder.InsertMenuBarItem(3, id("click"), SLOT(sign()), QIcon(), id("Click"), id("Clicks"),
                              id("Clicker"));
    shared->name = id("last");
    shared->shortcut = {};
    builder.InsertMenuBarItem(99, shared, id("Last"));
    shared->kind = AppMenuSeparator;
    builder.InsertMenuBarItem(1, shared);
    screen.window.resize(900, 200);
    QVERIFY(screen.isReady());
    for (const char* const name : {"turn", "text", "zero", "click", "last", "sign", "icon"})
      screen.click(name);
    QCOMPARE(screen.receiver.calls.count(id("sign")), 6); // the last one has only an icon
    builder.SetMenuBarToggleItemState(id("turn"), true);
    builder.SetMenuPosition({7, 3});
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Up, Qt::Key_Right})
      screen.key(key);
    QVERIFY(screen.menu("sign")->toolTipsVisible() && screen.menu("two")->isVisible());
    VELA_COMPARE_SCREEN("every_menu_item");
    screen.window.resize(300, 200);
    for (const Qt::Key key : {Qt::Key_F10, Qt::Key_F10, Qt::Key_End, Qt::Key_Down})
      screen.key(key);
    VELA_COMPARE_SCREEN("every_menu_item_in_the_rest", Vela::Test::OnlyAsItIs);
    const QList<AppMenuItemSpecifier> none;
    for (const char* const name : {"", "none", "click"})
      QVERIFY(!builder.AddSubMenu(id(name), sign, none) && !builder.AppendMenuItem(id(name), sign) &&
              !builder.AddSubMenu(id(name), sign, QVector<QAction*>()) &&
              !builder.AddDropDownMenu(id("none"), none) &&
              !builder.AddDropDownMenu(id("none"), {}, nullptr));
    QSharedPointer<QToolButton> item = builder.GetMenuBarItem(id("click"));
    for (const auto style : {Qt::ToolButtonIconOnly, Qt::ToolButtonTextOnly})
      builder.SetMenuBarItemButtonStyle(item, style);
    QVERIFY2(item->maximumWidth() > 900 && item->maximumHeight() > 900, "room for its text again");
  }

  void whatIsOddIsAddedToo() {
    Screen screen;
    Builder& builder = *screen.builder;
    QTest::ignoreMessage(QtWarningMsg, "An item of the menu bar needs a name");
    builder.AddMenuBarItem(QString(), QIcon(), id("Nameless"));
    QTest::ignoreMessage(QtWarningMsg, "The menu item \"one\" does nothing: Receiver has no slot pen()");
    const AppMenuItemSpecifier separator = AppMenuItemSpecifier::Separator(); // one is enough
    for (const AppMenuItemSpecifier& specifier :
         {separator, separator, AppMenuItemSpecifier::OfAction(&screen.undo),
          AppMenuItemSpecifier::SubMenu(id("sub"), id("&Sub"), {entry("one", "One", "open()")})})
      builder.AddMenuBarItem(QSharedPointer<AppMenuItemSpecifier>::create(specifier));
    QCOMPARE(builder.MenuBar()->findChildren<QFrame*>(id("separator")).size(), 1);
    screen.undo.setText(id("Undo it"));
    QVERIFY(screen.item("Undo")->text() == id("Undo it") && screen.menu("sub"));
  }

  void aReaderIsToldOfItemsAndUsesThem() {
    Screen screen;
    QVERIFY(screen.isReady());
    screen.builder->AddMenuBarItem(id("both"), SLOT(sign()), QIcon(), {}, id("Both"));
    screen.builder->AddDropDownMenu(id("both"), {entry("one", "One")});
    const auto told = [&screen](const char* name, const char* does = "") {
      QAccessibleInterface* const item = QAccessible::queryAccessibleInterface(screen.item(name));
      item->actionInterface()->doAction(id(does));
      return QStringList{item->text(QAccessible::Name), item->actionInterface()->actionNames().join(u'+'),
                         item->actionInterface()->keyBindingsForAction({}).join(u'+'),
                         item->childCount() > item->indexOfChild(item->child(0)) && !item->child(1) ? id("")
                                                                                                    : id("?"),
                         item->state().collapsed && item->state().expandable ? id("closed") : id("")}
          .join(u'|');
    };
    QCOMPARE(told("file"), id("File|ShowMenu|Alt+F||closed"));
    QCOMPARE(told("help"), id("Help|Press|Alt+H||"));
    QCOMPARE(told("both", "Press"), id("Both|ShowMenu+Press|||closed"));
    QCOMPARE(screen.receiver.calls, QStringList(id("sign")));
    QCOMPARE(told("both", "ShowMenu"), id("Both|ShowMenu+Press|||"));
  }

  void whatCannotOpenOrRunDoesNoHarm() {
    Screen screen;
    Builder& builder = *screen.builder;
    QTest::ignoreMessage(QtWarningMsg, "The menu item \"save\" does nothing: Receiver has no slot save()");
    builder.AddMenuBarItem(id("save"), SLOT(save()), QIcon(), id("Save"));
    screen.click("save");
    connect(screen.menu("edit"), &QMenu::aboutToShow, &builder,
            [&] { builder.AddDropDownMenu(id("edit"), {entry("late", "Late")}); });
    screen.click("edit");
    QVERIFY2(builder.CanHide() && !screen.item("edit")->isDown(), "a menu that is replaced does not open");
    settle();
    screen.click("edit");
    QVERIFY(screen.isOnlyOpen("edit"));
  }

  void nothingDanglesWhateverDiesFirst() {
    QSharedPointer<QToolButton> kept;
    {
      Screen screen;
      auto* const receiver = new Receiver;
      screen.builder->SetReceiver(receiver);
      screen.builder->AddMenuBarItem(id("go"), SLOT(open()), QIcon(), id("Go"));
      delete receiver;
      screen.click("go");
      QTest::ignoreMessage(
          QtWarningMsg, "The menu item \"later\" does nothing: a receiver that is null has no slot open()");
      screen.builder->AddMenuBarItem(id("later"), SLOT(open()), QIcon());

      screen.click("edit");
      delete screen.menu("edit");
      QVERIFY(!screen.item("edit")->isDown() && screen.builder->CanHide());
      screen.builder->AddMenuBarItem(id("edit"), QIcon(), id("New"));
      screen.click("file");
      settle();
      QVERIFY2(screen.item("file")->isDown(), "the item that has died was another one");
      screen.builder->AddMenuBarItem(id("file"), QIcon(), id("New"));
      settle();
      screen.click("file");
      kept = screen.builder->GetMenuBarItem(id("go"));
      screen.window.setMenuWidget(nullptr);
      settle();
      QVERIFY(!screen.builder->MenuBar() && !screen.builder->GetMenuBarItem(id("file")));
      screen.builder->Start();
      screen.builder->AddMenuBarItem(id("x"), QIcon());
    }
    QVERIFY(!kept->parent());
    kept->click();
    kept.clear();
    settle();
  }

  void theBuilderMayEndWhileAMenuOpens() {
    Screen screen;
    QVERIFY(screen.isReady());
    const QPointer<Builder> end = screen.builder;
    const QPointer<QMenu> menu = screen.menu("file");
    connect(menu, &QMenu::aboutToShow, &screen.window, [&] { delete end; });
    screen.click("file");
    settle();
    QVERIFY(!end && !menu && !QApplication::activePopupWidget());
  }

  void theBuilderMayEndWhileAMenuCloses_data() {
    const Vela::Test::Rows<std::function<void(Screen&)>> row("close");
    row("escape", [](Screen& screen) { screen.key(Qt::Key_Escape); });
    row("pointer moves on", [](Screen& screen) { screen.moveTo("edit"); });
    row("arrow", [](Screen& screen) { screen.key(Qt::Key_Right); });
    row("item disabled", [](Screen& screen) { screen.item("file")->setEnabled(false); });
    row("bar goes", [](Screen& screen) { delete screen.builder->MenuBar(); });
  }

  void theBuilderMayEndWhileAMenuCloses() {
    QFETCH(std::function<void(Screen&)>, close);
    Screen screen;
    QMenu own; // that the bar does not own
    own.addAction(id("Own"));
    screen.builder->AddButtonMenuLinkage(screen.item("file"), &own);
    QVERIFY(screen.isReady());
    screen.click("file");
    QVERIFY(own.isVisible());
    const QPointer<Builder> end = screen.builder;
    const auto held = screen.builder->GetMenuBarItem(id("file"));
    connect(&own, &QMenu::aboutToHide, &screen.window, [&] { delete end; });
    close(screen);
    QVERIFY(!end && !own.isVisible() && !held->isDown());
    QAccessible::queryAccessibleInterface(held.data())
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::showMenuAction());
    QVERIFY(!own.isVisible());
  }
};

VELA_TEST_MAIN(MenuBuilderTest)
#include "menu_builder_test.moc"
