// SPDX-License-Identifier: MIT
#include "presentation_screen.h"

#include <ui_base/notifications/notification_bar.h>

#include <QAccessible>
#include <QAction>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest/qtestspontaneevent.h>

using Screen = Vela::Test::PresentationScreen;
using namespace Vela::UiBase;

namespace {

/// The widget that would have the focus of a window.
QWidget* focusOf(const QWidget& window) { return window.focusWidget(); }

bool reaches(QWidget& window, Qt::Key key, const QSignalSpy& spy) {
  const qsizetype before = spy.size();
  QTest::keyClick(window.windowHandle(), key);
  return spy.size() == before + 1;
}

} // namespace

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
  void tabSwitchKeepsFocusOfEachPage();
  void notificationIsSeenOverAppearedViewsOnly();
};

void CoverTest::inputEndsAtTheFront() {
  struct Behind : QDialog {
    int presses = 0, keys = 0, wheels = 0;
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void keyPressEvent(QKeyEvent* event) override {
      ++keys;
      QDialog::keyPressEvent(event);
    }
    void wheelEvent(QWheelEvent*) override { ++wheels; }
  } behind;
  Screen screen;
  (new QVBoxLayout(&behind))->addWidget(screen.view("a"));
  screen.view("b")->setAttribute(Qt::WA_NoSystemBackground);
  behind.resize(300, 200);
  behind.show();
  QVERIFY(QTest::qWaitForWindowActive(&behind));
  QEvent leave(QEvent::Leave);
  QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
  QCoreApplication::sendEvent(screen.view("a"), &enter);
  screen.run(QStringLiteral("a>b b>c"));
  screen.calls.clear();
  QCoreApplication::sendEvent(screen.view("a"), &leave); // who was entered is left
  QCoreApplication::sendEvent(screen.view("b"), &leave);
  QCOMPARE(screen.calls, QStringList{QStringLiteral("a mouseLeave")});
  screen.calls.clear();
  for (const auto& controller : std::as_const(screen.controllers))
    controller->consumes = false;
  const QPoint at = behind.rect().center();
  QTest::mouseClick(behind.windowHandle(), Qt::LeftButton, {}, at);
  QTest::keyClick(behind.windowHandle(), Qt::Key_F9);
  QWheelEvent wheel(at, behind.mapToGlobal(at), {}, QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QSpontaneKeyEvent::setSpontaneous(&wheel); // others do not propagate
  QCoreApplication::instance()->notify(screen.view("c"), &wheel);
  QCOMPARE(behind.presses, 1);
  QCOMPARE(behind.keys, 1);
  QCOMPARE(behind.wheels, 1);
  QVERIFY(screen.calls.contains(QStringLiteral("c mousePress")));
  QVERIFY(screen.calls.filter(QRegularExpression(QStringLiteral("^[ab] "))).isEmpty());
  QTest::keyClick(behind.windowHandle(), Qt::Key_Escape);
  QVERIFY(behind.isHidden());
}

void CoverTest::childrenBehindAreDisabledByARecordOfTheirOwn() {
  Screen screen;
  auto* const button = new QPushButton(screen.view("a"));
  auto* const disabled = new QPushButton(screen.view("a"));
  auto* const changed = new QPushButton(screen.view("a"));
  disabled->setEnabled(false);
  screen.run(QStringLiteral("a>b"));
  auto* const late = new QPushButton(screen.view("a"));
  QVERIFY(!button->isEnabled() && !late->isEnabled() && screen.view("b")->isEnabled());
  changed->setEnabled(false);
  disabled->setEnabled(true);
  button->setEnabled(true);
  QVERIFY(!button->isEnabled() && !disabled->isEnabled());
  screen.view("a")->setEnabled(false);
  screen.view("a")->setEnabled(true);
  QVERIFY(!button->isEnabled());
  late->setParent(&screen.window);
  QVERIFY(late->isEnabled());
  screen.run(QStringLiteral("b<"));
  QVERIFY(button->isEnabled() && disabled->isEnabled() && !changed->isEnabled());
}

void CoverTest::shortcutsReachOnlyTheFront() {
  Screen screen;
  QAction behind;
  QAction shared;
  QAction front;
  behind.setShortcut(Qt::Key_F5);
  shared.setShortcut(Qt::Key_F6);
  front.setShortcut(Qt::Key_F7);
  screen.view("a")->addActions({&behind, &shared, &front});
  screen.window.addAction(&shared);
  QSignalSpy behindSpy(&behind, &QAction::triggered);
  QSignalSpy sharedSpy(&shared, &QAction::triggered);
  QAction rival;
  rival.setShortcut(Qt::Key_F7);
  screen.view("b")->addAction(&rival);
  QSignalSpy frontSpy(&front, &QAction::triggered);
  QSignalSpy rivalSpy(&rival, &QAction::triggered);
  QVERIFY(reaches(screen.window, Qt::Key_F5, behindSpy));
  screen.run(QStringLiteral("a>b"));
  QVERIFY(!reaches(screen.window, Qt::Key_F5, behindSpy));
  QVERIFY(reaches(screen.window, Qt::Key_F6, sharedSpy));
  QVERIFY(reaches(screen.window, Qt::Key_F7, rivalSpy));
  QVERIFY(reaches(screen.window, Qt::Key_F7, rivalSpy));
  QCOMPARE(frontSpy.size(), 0);
  screen.run(QStringLiteral("b<"));
  QVERIFY(reaches(screen.window, Qt::Key_F5, behindSpy));
}

void CoverTest::screenReadersFindOnlyTheFront() {
  Screen screen;
  new QPushButton(screen.view("a"));
  QAccessibleInterface* const a = QAccessible::queryAccessibleInterface(screen.view("a"));
  QCOMPARE(a->childCount(), 1);
  screen.run(QStringLiteral("a>b a>c"));
  QCOMPARE(a->childCount(), 1);
  QCOMPARE(a->child(0)->object(), screen.view("c"));
  QCOMPARE(a->indexOfChild(a->child(0)), 0);
  const QPoint centre = screen.view("a")->mapToGlobal(screen.view("a")->rect().center());
  QCOMPARE(a->childAt(centre.x(), centre.y())->object(), screen.view("c"));
  QVERIFY(!a->child(1));
}

void CoverTest::focusIsRememberedAndGivenBack_data() {
  QTest::addColumn<QString>("steps");
  QTest::addColumn<QString>("focus"); // a view, or its line edit
  const auto row = [](const char* steps, const char* focus) {
    QTest::newRow(steps) << QString::fromLatin1(steps) << QString::fromLatin1(focus);
  };
  row("", "a edit");
  row("a>b", "b");
  for (const char* gone : {"b<", "bq", "bx", "bX", "b^", "b/", "d>b", "b=c b<"})
    row(qPrintable(QStringLiteral("a>b ") + QLatin1String(gone)),
        strcmp(gone, "b=c b<") == 0 ? "b" : "a edit");
  row("a>b b>c c<", "b");
  row("a>b a>c b<", "c");
  row("b! a>b b<", "b");
  row("w_ w=", "a edit");
  row("a>b w_ w= b<", "a edit");
  row("a^ av", "a edit");
  row("w^ wv", "a edit");
  row("a>b w^ wv", "b");
  row("w^ a>b wv", "b");
}

void CoverTest::focusIsRememberedAndGivenBack() {
  QFETCH(const QString, steps);
  QFETCH(const QString, focus);
  Screen screen;
  auto* const edit = new QLineEdit(screen.view("a"));
  edit->show();
  auto* const beside = new BaseView;
  screen.window.layout()->addWidget(beside);
  beside->show();
  edit->setFocus();
  screen.run(steps);
  QWidget* const expected =
      focus.endsWith(QLatin1String("edit")) ? static_cast<QWidget*>(edit) : screen.view(focus);
  QCOMPARE(focusOf(screen.window), expected);
  edit->setFocus();
  screen.view("a")->setFocus();
  if (screen.window.isActiveWindow() && screen.view("a")->presentation().constFirst().covered)
    QCOMPARE(focusOf(screen.window), expected);
  screen.run(QStringLiteral("ax"));
  QCOMPARE(focusOf(screen.window), beside);
}

void CoverTest::tabAndClicksGoToTheFront() {
  Screen screen;
  auto* const outside = new QLineEdit;
  screen.window.layout()->addWidget(outside);
  new QLineEdit(screen.view("a"));
  auto* const inside = new QLineEdit(screen.view("b"));
  screen.run(QStringLiteral("a>b"));
  QCOMPARE(focusOf(screen.window), screen.view("b"));
  QSet<QWidget*> reached;
  for (int i = 0; i < 8; ++i) {
    QTest::keyClick(screen.window.windowHandle(), i < 4 ? Qt::Key_Tab : Qt::Key_Backtab);
    reached.insert(focusOf(screen.window));
  }
  QCOMPARE(reached, (QSet<QWidget*>{screen.view("b"), inside, outside}));
  outside->setFocus();
  QTest::mouseClick(screen.window.windowHandle(), Qt::LeftButton, {},
                    screen.view("b")->mapTo(&screen.window, screen.view("b")->rect().center()));
  QCOMPARE(focusOf(screen.window), screen.view("b"));
}

void CoverTest::tabSwitchKeepsFocusOfEachPage() {
  Screen screen;
  QTabWidget tabs;
  auto* const left = new BaseView;
  auto* const page = new QWidget;
  (new QVBoxLayout(page))->addWidget(left);
  auto* const right = new BaseView;
  tabs.addTab(page, QStringLiteral("1"));
  tabs.addTab(right, QStringLiteral("2"));
  auto* const leftEdit = new QLineEdit(left);
  auto* const rightEdit = new QLineEdit(right);
  tabs.show();
  QVERIFY(QTest::qWaitForWindowActive(&tabs));
  leftEdit->setFocus();
  tabs.setCurrentIndex(1);
  QVERIFY(right->isAncestorOf(focusOf(tabs)) || focusOf(tabs) == right);
  rightEdit->setFocus();
  tabs.setCurrentIndex(0);
  QCOMPARE(focusOf(tabs), leftEdit);
  tabs.setCurrentIndex(1);
  QCOMPARE(focusOf(tabs), rightEdit);
}

void CoverTest::notificationIsSeenOverAppearedViewsOnly() {
  Screen screen;
  const auto notify = [&screen](const QString& name) {
    screen.controller(name)->showNotification(QStringLiteral("Saved."), FadeInOnly, 3000, false, nullptr,
                                              nullptr);
    return screen.view(name)->findChild<NotificationBar*>(QString(), Qt::FindChildrenRecursively);
  };
  screen.run(QStringLiteral("a>b"));
  const QPointer<NotificationBar> bar = notify(QStringLiteral("a"));
  QVERIFY(!bar->isVisible());
  QVERIFY(notify(QStringLiteral("b"))->isVisible());
  screen.run(QStringLiteral("b<"));
  QVERIFY(bar->isVisible());
  screen.run(QStringLiteral("a>c"));
  QVERIFY(!bar->isVisible());
}

VELA_TEST_MAIN(CoverTest)
#include "cover_test.moc"
