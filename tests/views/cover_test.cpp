// SPDX-License-Identifier: MIT
#include "presentation_screen.h"

#include <ui_base/notifications/notification_bar.h>
#include <ui_base/popups/arrowed_window.h>

#include <QAccessible>
#include <QAction>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <QWindow>

using Vela::Test::settle;
using Screen = Vela::Test::PresentationScreen;
using namespace Vela::UiBase;

/// Input, shortcuts, focus and screen readers do not get past the view in front.
class CoverTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void inputEndsAtTheFront();
  void childrenBehindAreDisabledByARecordOfTheirOwn();
  void shortcutsReachOnlyTheFront();
  void screenReadersFindOnlyTheFront();
  void focusIsRememberedAndGivenBack_data();
  void focusIsRememberedAndGivenBack();
  void tabAndClicksGoToTheFront();
  void tabSwitchesLeaveTheFocusOnTheTabs();
  void popupsOfTheFrontLieOverItsWindow();
  void notificationIsSeenOverAppearedViewsOnly();
};

void CoverTest::inputEndsAtTheFront() {
  struct Behind : QDialog {
    int presses = 0;
    void mousePressEvent(QMouseEvent*) override { ++presses; }
  } behind;
  Screen screen;
  (new QVBoxLayout(&behind))->addWidget(screen.view("a"));
  behind.resize(300, 200);
  behind.show();
  QVERIFY(QTest::qWaitForWindowActive(&behind));
  screen.run(QStringLiteral("a>b b>c"));
  auto* const late = new QWidget(screen.view("a"));
  late->resize(screen.view("a")->size());
  late->show();
  late->raise();
  screen.calls.clear();
  QTest::mouseClick(behind.windowHandle(), Qt::LeftButton, {}, behind.rect().center());
  QCOMPARE(behind.presses, 1);
  QCOMPARE(screen.calls, QStringList(QStringLiteral("c mousePress")));
  QTest::keyClick(behind.windowHandle(), Qt::Key_Escape);
  QVERIFY(behind.isHidden());
}

void CoverTest::childrenBehindAreDisabledByARecordOfTheirOwn() {
  Screen screen;
  auto* const disabled = new QPushButton(screen.view("a"));
  auto* const changed = new QPushButton(screen.view("a"));
  disabled->setEnabled(false);
  screen.run(QStringLiteral("a>b"));
  changed->setEnabled(false);
  disabled->setEnabled(true);
  screen.view("a")->setEnabled(false);
  screen.view("a")->setEnabled(true);
  QVERIFY(!disabled->isEnabled() && screen.view("b")->isEnabled());
  screen.run(QStringLiteral("b<"));
  QVERIFY(disabled->isEnabled() && !changed->isEnabled());
}

void CoverTest::shortcutsReachOnlyTheFront() {
  for (const QString actionsOf : {"ab", "a", "b", ""}) { // the others have shortcuts
    Screen screen;
    QStringList heard;
    const auto add = [&](const QString& name, Qt::Key key) {
      const auto hear = [&heard, name] { heard += name; };
      BaseView* const view = screen.view(name);
      if (!actionsOf.contains(name))
        connect(new QShortcut(key, view), &QShortcut::activated, view, hear);
      else
        connect(view->addAction(QIcon(), name, key), &QAction::triggered, view, hear);
    };
    add("a", Qt::Key_F5);
    add("a", Qt::Key_F6);
    add("b", Qt::Key_F5);
    screen.run(QStringLiteral("a>b"));
    QTest::keyClick(screen.window.windowHandle(), Qt::Key_F5);
    QTest::keyClick(screen.window.windowHandle(), Qt::Key_F6);
    QCOMPARE(heard, QStringList("b"));
    QCOMPARE(screen.calls.count("b keyPress"), 1); // the key of a's own is not lost
    screen.run(QStringLiteral("b<"));
    QTest::keyClick(screen.window.windowHandle(), Qt::Key_F5);
    QCOMPARE(heard, QStringList({"b", "a"}));
  }
}

void CoverTest::screenReadersFindOnlyTheFront() {
  Screen screen;
  new QPushButton(screen.view("a"));
  QAccessibleInterface* const a = QAccessible::queryAccessibleInterface(screen.view("a"));
  screen.run(QStringLiteral("a>b a>c"));
  QCOMPARE(a->childCount(), 1);
  QCOMPARE(a->child(0)->object(), screen.view("c"));
  const QPoint centre = screen.view("a")->mapToGlobal(screen.view("a")->rect().center());
  QCOMPARE(a->childAt(centre.x(), centre.y())->object(), screen.view("c"));
  // And what each is.
  QCOMPARE(a->role(), QAccessible::Canvas);
  screen.view("a")->setWindowTitle("Scan[*]");
  QCOMPARE(a->text(QAccessible::Name), QStringLiteral("Scan"));
  screen.view("a")->setAccessibleName("Mesh view");
  QCOMPARE(a->text(QAccessible::Name), QStringLiteral("Mesh view"));
  new QVBoxLayout(screen.view("a"));
  QCOMPARE(a->role(), QAccessible::Pane);
  BaseView window;
  QCOMPARE(QAccessible::queryAccessibleInterface(&window)->role(), QAccessible::Window);
}

void CoverTest::focusIsRememberedAndGivenBack_data() {
  QTest::addColumn<QString>("focus"); // a view, or its line edit
  for (const char* steps : {"", "a>b b<", "a>b bx", "a>b b^", "a>b b/", "a>b d>b", "w_ w=", "a>b w_ w= b<"})
    QTest::newRow(steps) << "a edit";
  for (const char* steps : {"a>b", "a>b b=c b<", "a>b b>c c<", "b! a>b b<", "w^ a>b wv"})
    QTest::newRow(steps) << "b";
  for (const char* steps : {"a^ a>b a>b", "a^ a>b bf bx", "a^ c@b b@a cf c/"})
    QTest::newRow(steps) << "beside"; // nothing of it is seen
}

void CoverTest::focusIsRememberedAndGivenBack() {
  QFETCH(const QString, focus);
  Screen screen;
  auto* const edit = new QLineEdit(screen.view("a"));
  edit->show();
  auto* const beside = new BaseView;
  screen.window.layout()->addWidget(beside);
  beside->show();
  edit->setFocus();
  screen.run(QTest::currentDataTag());
  QWidget* const expected = focus.endsWith(QLatin1String("edit")) ? static_cast<QWidget*>(edit)
                            : focus == "beside"                   ? beside
                                                                  : screen.view(focus);
  QCOMPARE(screen.window.focusWidget(), expected);
  screen.run(QStringLiteral("ax"));
  QCOMPARE(screen.window.focusWidget(), beside);
  QVERIFY(!screen.lostFocus);
}

void CoverTest::tabAndClicksGoToTheFront() {
  Screen screen;
  auto* const outside = new QLineEdit;
  screen.window.layout()->addWidget(outside);
  new QLineEdit(screen.view("a"));
  auto* const inside = new QLineEdit(screen.view("b"));
  screen.run(QStringLiteral("a>b"));
  QSet<QWidget*> reached;
  for (int i = 0; i < 8; ++i) {
    QTest::keyClick(screen.window.windowHandle(), i < 4 ? Qt::Key_Tab : Qt::Key_Backtab);
    reached.insert(screen.window.focusWidget());
  }
  QCOMPARE(reached, (QSet<QWidget*>{screen.view("b"), inside, outside}));
  outside->setFocus();
  QTest::mouseClick(screen.window.windowHandle(), Qt::LeftButton, {},
                    screen.view("b")->mapTo(&screen.window, screen.view("b")->rect().center()));
  QCOMPARE(screen.window.focusWidget(), screen.view("b"));
  inside->setFocus();
  delete inside;
  settle();
  QCOMPARE(screen.window.focusWidget(), screen.view("b"));
}

void CoverTest::tabSwitchesLeaveTheFocusOnTheTabs() {
  Screen screen;
  QTabWidget tabs;
  auto* const page = new QWidget;
  screen.view("c")->setParent(page);
  tabs.addTab(screen.view("b"), "b");
  tabs.addTab(page, "c");
  tabs.show();
  tabs.activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&tabs));
  tabs.tabBar()->setFocus();
  QTest::keyClick(tabs.windowHandle(), Qt::Key_Right);
  tabs.tabBar()->setFocus(); // a view takes the focus where it is shown first
  for (const auto& [key, shown] : {std::pair{Qt::Key_Left, "b"}, {Qt::Key_Right, "c"}}) {
    QTest::keyClick(tabs.windowHandle(), key);
    QVERIFY(screen.view(shown)->isVisible());
    QCOMPARE(tabs.focusWidget(), tabs.tabBar());
  }
}

void CoverTest::popupsOfTheFrontLieOverItsWindow() {
  Screen screen;
  screen.window.layout()->removeWidget(screen.view("a"));
  screen.view("a")->setParent(nullptr); // a window of its own
  screen.view("a")->show();
  screen.run(QStringLiteral("a>b"));
  auto* const popup = new ArrowedWindow(screen.view("a"));
  auto* const button = new QPushButton(popup);
  popup->show();
  popup->raise();
  QVERIFY(button->isEnabled());
  QCOMPARE(screen.view("a")->children().constLast(), popup);
}

void CoverTest::notificationIsSeenOverAppearedViewsOnly() {
  Screen screen;
  screen.run(QStringLiteral("a>b"));
  for (const char* name : {"a", "c"})
    screen.controller(name)->showNotification(QStringLiteral("Saved."), FadeInOnly, 3000);
  const auto bars =
      screen.view("a")->findChildren<NotificationBar*>() + screen.view("c")->findChildren<NotificationBar*>();
  screen.run(QStringLiteral("c@a"));
  QVERIFY(!bars[0]->isVisible() && !bars[1]->isVisible());
  screen.run(QStringLiteral("b<"));
  QVERIFY(bars[0]->isVisible() && bars[1]->isVisible());
}

VELA_TEST_MAIN(CoverTest)
#include "cover_test.moc"
