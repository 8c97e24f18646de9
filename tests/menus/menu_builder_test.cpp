// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/menus/menu_builder.h>

#include <QAccessible>
#include <QAction>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QSignalSpy>
#include <QToolButton>

using namespace Vela::UiBase;
using Vela::Test::settle;

namespace {

class Receiver : public QObject {
  Q_OBJECT

public:
  QStringList calls;

public Q_SLOTS:
  void open() { calls += QStringLiteral("open"); }
  void sign() { calls += QStringLiteral("sign"); }
  void grid(bool on) { calls += on ? QStringLiteral("grid on") : QStringLiteral("grid off"); }
};

class Builder : public MenuBuilder {
public:
  using MenuBuilder::FindAction;
  using MenuBuilder::MenuBuilder;
};

AppMenuItemSpecifier entry(const char* name, const char* text, const char* slot = nullptr) {
  return {.name = QLatin1String(name), .text = QLatin1String(text), .slot = slot};
}

QString id(const char* name) { return QString::fromLatin1(name); }

/// A window with an edit line and the items "file" (a menu), "edit" (another), "help" (a click).
struct Screen {
  Screen() : builder(new Builder(id("bar"), &window, &window)), edit(new QLineEdit) {
    window.setCentralWidget(edit);
    builder->SetReceiver(&receiver);
    builder->AddMenuBarItem(id("file"), QIcon(), id("&File"));
    AppMenuItemSpecifier grid = entry("grid", "&Grid", SLOT(grid(bool)));
    grid.checkable = true;
    builder->AddDropDownMenu(
        id("file"), {entry("open", "&Open", SLOT(open())), AppMenuItemSpecifier::Separator(), grid,
                     AppMenuItemSpecifier::SubMenu(id("recent"), id("&Recent"), {entry("one", "One")})});
    builder->AddMenuBarItem(id("edit"), QIcon(), id("&Edit"));
    builder->AddDropDownMenu(id("edit"), {&undo, nullptr, &redo}, &undo);
    builder->AddMenuBarItem(id("help"), SLOT(open()), QIcon(), id("&Help"), id("Opens the help"));
    builder->Start();
    window.resize(400, 300);
    window.show();
    edit->setFocus();
  }

  bool isReady() { return QTest::qWaitForWindowActive(&window); }
  QToolButton* item(const char* name) const { return builder->GetMenuBarItem(id(name)).data(); }
  QMenu* menu(const char* name) const { return builder->GetMenu(id(name)); }
  bool isOnlyOpen(const char* name) const {
    bool result = true;
    for (const char* const each : {"file", "edit"})
      result = result && menu(each)->isVisible() == (qstrcmp(each, name) == 0);
    return result;
  }

  void click(const char* name) { QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, center(name)); }
  void moveTo(const char* name) { QTest::mouseMove(window.windowHandle(), center(name)); }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    const QWidget* const popup = QApplication::activePopupWidget();
    QTest::keyClick(popup ? popup->windowHandle() : window.windowHandle(), key, modifiers);
  }
  void alt(Qt::Key letter) { key(letter, Qt::AltModifier); }
  QPoint center(const char* name) const { return item(name)->mapTo(&window, item(name)->rect().center()); }

  Receiver receiver;
  QAction undo{id("&Undo")};
  QAction redo{id("Re&do")};
  QMainWindow window;
  Builder* builder;
  QLineEdit* edit;
};

} // namespace

class MenuBuilderTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void aNarrowBarHasTheRestInAMenu() {
    Screen screen;
    screen.window.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(screen.isReady());
    const QWidget* const bar = screen.builder->MenuBar();
    auto* const more = bar->findChild<QToolButton*>(id("overflow"));
    QVERIFY(!more->isVisible());
    screen.window.resize(100, 200);
    QTRY_VERIFY(more->isVisible());
    QVERIFY(bar->rect().contains(more->geometry()) && bar->rect().contains(screen.item("file")->geometry()));
    QVERIFY(!bar->rect().intersects(screen.item("edit")->geometry()));
    screen.key(Qt::Key_F10);
    screen.key(Qt::Key_End);
    QVERIFY(more->hasFocus());
    screen.key(Qt::Key_Down);
    QTest::keyClick(more->menu()->windowHandle(), Qt::Key_H);
    QCOMPARE(screen.receiver.calls, QStringList{id("open")});
    screen.alt(Qt::Key_E);
    QTRY_VERIFY2(more->menu()->isVisible() && screen.menu("edit")->isVisible(), "a mnemonic opens it there");
    QTest::keyClick(screen.menu("edit")->windowHandle(), Qt::Key_Escape);
    QTest::keyClick(more->menu()->windowHandle(), Qt::Key_Escape);
    screen.window.resize(400, 200);
    QTRY_VERIFY(!more->isVisible());
    screen.click("edit");
    QVERIFY(screen.isOnlyOpen("edit"));
  }

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
  }

  void theMouseOpensMovesAlongAndCloses() {
    Screen screen;
    QVERIFY(screen.isReady());
    screen.click("file");
    QVERIFY(screen.isOnlyOpen("file"));
    QToolButton* const file = screen.item("file");
    QCOMPARE(screen.menu("file")->pos(), file->mapToGlobal(QPoint(0, file->height())));
    QVERIFY(!screen.builder->CanHide());
    screen.moveTo("edit");
    QVERIFY(screen.isOnlyOpen("edit"));
    QVERIFY(screen.item("edit")->isDown() && !file->isDown());
    screen.click("edit");
    QVERIFY2(screen.isOnlyOpen(""), "a second click on the open item closes");
    QVERIFY(screen.edit->hasFocus() && screen.builder->CanHide());

    screen.click("help");
    QCOMPARE(screen.receiver.calls, QStringList{id("open")});
    screen.click("file");
    QMenu* const menu = screen.menu("file");
    const QPoint grid = menu->actionGeometry(screen.builder->FindAction(id("file"), id("&Grid"))).center();
    QTest::mouseMove(menu->windowHandle(), grid);
    QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {}, grid);
    QCOMPARE(screen.receiver.calls.constLast(), id("grid on"));
    QVERIFY(screen.isOnlyOpen("") && !file->isDown());
  }

  void menusAreInSight() {
    Screen screen;
    screen.window.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(screen.isReady());
    const QRect desktop = screen.window.screen()->availableGeometry();
    const QPoint span(desktop.width(), desktop.height() - 30);
    for (int i = 0; i < 9; ++i) {
      // Its first item may be beyond the edge by half.
      screen.window.move(desktop.topLeft() + QPoint(span.x() * (i % 3) / 2 - 200, span.y() * (i / 3) / 2));
      for (const char* const name : {"file", "edit"}) {
        const QToolButton* const item = screen.item(name);
        const QRect owner(item->mapToGlobal(QPoint()), item->size());
        if (!desktop.contains(owner.center()))
          continue;
        screen.click(name);
        QVERIFY(screen.isOnlyOpen(name) && desktop.contains(screen.menu(name)->geometry()));
        QVERIFY(!screen.menu(name)->geometry().intersects(owner));
        screen.click(name);
      }
    }
  }

  void aMenuClosesAfterThePointerLeftIt() {
    Screen screen;
    QVERIFY(screen.isReady());
    screen.builder->SetMenuCloseDelay(20);
    screen.click("file");
    QMenu* const menu = screen.menu("file");
    QTest::mouseMove(menu->windowHandle(), QPoint(5, 5));
    QCursor::setPos(screen.window.mapToGlobal(QPoint(390, 290)));
    QTest::mouseMove(screen.window.windowHandle(), QPoint(390, 290));
    QTRY_VERIFY(!menu->isVisible());
  }

  void theKeyboardAloneReachesEverything() {
    Screen screen;
    QVERIFY(screen.isReady());
    screen.key(Qt::Key_F10);
    QVERIFY(screen.item("file")->hasFocus());
    screen.key(Qt::Key_Left);
    QVERIFY2(screen.item("help")->hasFocus(), "it goes round");
    screen.key(Qt::Key_Return);
    QCOMPARE(screen.receiver.calls, QStringList{id("open")});
    QVERIFY(screen.edit->hasFocus());

    screen.key(Qt::Key_F, Qt::AltModifier);
    QVERIFY(screen.isOnlyOpen("file"));
    QCOMPARE(screen.menu("file")->activeAction()->objectName(), id("open"));
    screen.key(Qt::Key_Right);
    QVERIFY(screen.isOnlyOpen("edit") && screen.item("edit")->hasFocus());
    screen.key(Qt::Key_Left);
    screen.key(Qt::Key_Up);
    screen.key(Qt::Key_Right);
    QTRY_VERIFY(screen.menu("recent")->isVisible());
    screen.key(Qt::Key_Right);
    QVERIFY2(screen.isOnlyOpen("edit"), "from a sub-menu to the next menu");
    screen.key(Qt::Key_Escape);
    QVERIFY(screen.isOnlyOpen("") && screen.item("edit")->hasFocus());
    screen.key(Qt::Key_F);
    QVERIFY2(screen.isOnlyOpen("file"), "in the bar a mnemonic needs no Alt");
    screen.key(Qt::Key_O);
    QCOMPARE(screen.receiver.calls.size(), 2);
    QVERIFY(screen.isOnlyOpen("") && screen.edit->hasFocus());
  }

  void altAloneEntersAndLeavesTheBar() {
    Screen screen;
    QVERIFY(screen.isReady());
    QWindow* const handle = screen.window.windowHandle();
    const auto alt = [&] {
      QTest::keyPress(handle, Qt::Key_Alt, Qt::AltModifier);
      QTest::keyRelease(handle, Qt::Key_Alt);
    };
    alt();
    QVERIFY(screen.item("file")->hasFocus() && !screen.builder->CanHide());
    screen.builder->HideMe();
    QVERIFY(screen.builder->IsMenuVisible());
    alt();
    QVERIFY(screen.edit->hasFocus());
    QTest::keyPress(handle, Qt::Key_Alt, Qt::AltModifier);
    QTest::keyClick(handle, Qt::Key_X, Qt::AltModifier);
    QTest::keyRelease(handle, Qt::Key_Alt);
    QVERIFY2(screen.edit->hasFocus(), "Alt went with another key");
    screen.builder->HideMe();
    alt();
    QVERIFY2(screen.edit->hasFocus(), "there is no bar to go to");
  }

  void itemsThatShareAMnemonicAreChosenFrom() {
    Screen screen;
    QVERIFY(screen.isReady());
    screen.builder->AddMenuBarItem(id("first"), SLOT(open()), QIcon(), id("&First"));
    screen.key(Qt::Key_F, Qt::AltModifier);
    QVERIFY(screen.isOnlyOpen("") && screen.item("file")->hasFocus());
    screen.key(Qt::Key_F);
    QVERIFY(screen.item("first")->hasFocus() && screen.receiver.calls.isEmpty());
    screen.key(Qt::Key_Up);
    QVERIFY2(screen.receiver.calls.isEmpty(), "an arrow does not click");
    screen.key(Qt::Key_Space);
    QCOMPARE(screen.receiver.calls, QStringList{id("open")});
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
    delete about;
    QVERIFY(screen.item("About")->isHidden());
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
      screen.click("file");
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
