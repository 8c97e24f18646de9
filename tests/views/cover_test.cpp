// SPDX-License-Identifier: MIT
#include "presentation_screen.h"

#include <support/screen_record.h>
#include <ui_base/popups/arrowed_window.h>

using namespace Vela::Test;
using Screen = Vela::Test::PresentationScreen;
using namespace Vela::UiBase;

/// Input, shortcuts, focus and screen readers do not get past the view in front.
class CoverTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void inputEndsAtTheFront() {
    struct Behind : QWidget {
      int presses = 0;
      void mousePressEvent(QMouseEvent*) override { ++presses; }
    };
    auto* const behind = new Behind;
    Screen screen(behind);
    screen.run("a>b b>c");
    auto* const late = new QWidget(screen.view("a"));
    late->resize(screen.view("a")->size());
    late->show();
    late->raise();
    screen.calls.clear();
    click(*behind);
    QCOMPARE(behind->presses, 1);
    QCOMPARE(screen.story(), "c press");
  }

  void childrenBehindAreDisabledByARecordOfTheirOwn() {
    Screen screen;
    auto* const disabled = new QPushButton(screen.view("a"));
    auto* const changed = new QPushButton(screen.view("a"));
    disabled->setEnabled(false);
    screen.run("a>b");
    changed->setEnabled(false);
    disabled->setEnabled(true);
    screen.view("a")->setEnabled(false);
    screen.view("a")->setEnabled(true);
    QVERIFY(!disabled->isEnabled() && screen.view("b")->isEnabled());
    screen.run("b<");
    QVERIFY(disabled->isEnabled() && !changed->isEnabled());
  }

  void shortcutsReachOnlyTheFront() {
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
      for (int i = 0; i < 2; ++i) // which of the two, nobody knows
        connect(new QShortcut(Qt::Key_F7, screen.view("b")), &QShortcut::activatedAmbiguously,
                screen.view("b"), [&heard] { heard += "?"; });
      screen.run("a>b");
      pressKey(screen.window, Qt::Key_F5);
      pressKey(screen.window, Qt::Key_F6);
      pressKey(screen.window, Qt::Key_F7);
      QCOMPARE(heard, QStringList({"b", "?"}));
      QCOMPARE(screen.calls.count("b key"), 1); // the key of a's own is not lost
      screen.run("b<");
      pressKey(screen.window, Qt::Key_F5);
      QCOMPARE(heard, QStringList({"b", "?", "a"}));
    }
  }

  void screenReadersFindOnlyTheFront() {
    Screen screen;
    new QPushButton(screen.view("a"));
    auto* const button = new QPushButton(screen.view("a"));
    button->show();
    QAccessibleInterface* const a = QAccessible::queryAccessibleInterface(screen.view("a"));
    QCOMPARE(a->childAt(a->rect().x() + 1, a->rect().y() + 1)->object(), button);
    screen.run("a>b a>c");
    QVERIFY(a->childCount() == 1 && a->child(0)->object() == screen.view("c"));
    QCOMPARE(a->indexOfChild(QAccessible::queryAccessibleInterface(button)), -1);
    QCOMPARE(a->childAt(a->rect().x() + 1, a->rect().y() + 1)->object(), screen.view("c"));
    screen.view("a")->setAccessibleName("Mesh view");
    new QVBoxLayout(screen.view("a"));
    screen.view("c")->setWindowTitle("Scan[*]");
    VELA_COMPARE_SCREEN("covered", OnlyAsItIs);
  }

  void focusIsRememberedAndGivenBack_data() {
    const Rows<QString> row("focus");
    for (const char* steps : {"", "a>b b<", "a>b bx", "a>b b^", "a>b b/", "a>b d>b", "w_ w=", "a>b w_ w= b<"})
      row(steps, "a's edit");
    for (const char* steps : {"a>b af", "a>b a>c a>b", "a>b b=c", "b! a>b b<", "w^ a>b wv"})
      row(steps, "b");
    for (const char* steps : {"a^ a>b a>b", "a^ a>b bf bx", "a^ c@b b@a cf c/"})
      row(steps, "beside"); // nothing of a is seen
  }

  void focusIsRememberedAndGivenBack() {
    Screen screen;
    auto* const edit = new QLineEdit(screen.view("a"));
    edit->setObjectName("a's edit");
    auto* const beside = new BaseView;
    beside->setObjectName("beside");
    screen.view("b")->setObjectName("b");
    screen.window.layout()->addWidget(beside);
    edit->show();
    beside->show();
    edit->setFocus();
    screen.run(QTest::currentDataTag());
    QTEST(screen.window.focusWidget()->objectName(), "focus");
    screen.run("ax");
    QCOMPARE(screen.window.focusWidget(), beside);
    QVERIFY(!screen.lostFocus);
  }

  void tabAndClicksGoToTheFront() {
    Screen screen;
    auto* const beside = new BaseView;
    auto* const outside = new QLineEdit(beside);
    screen.window.layout()->addWidget(beside);
    beside->show();
    new QLineEdit(screen.view("a"));
    auto* const inside = new QLineEdit(screen.view("b"));
    screen.run("a>b");
    QSet<QWidget*> reached;
    for (int i = 0; i < 8; ++i) {
      pressKey(screen.window, i < 4 ? Qt::Key_Tab : Qt::Key_Backtab);
      reached.insert(screen.window.focusWidget());
    }
    QCOMPARE(reached, (QSet<QWidget*>{screen.view("b"), inside, beside, outside}));
    outside->setFocus();
    click(*screen.view("b"));
    QCOMPARE(screen.window.focusWidget(), screen.view("b"));
    for (QLineEdit* const edit : {inside, outside}) {
      QWidget* const view = edit->parentWidget();
      edit->setFocus();
      delete edit;
      settle();
      QCOMPARE(screen.window.focusWidget(), view);
    }
  }

  void tabSwitchesLeaveTheFocusOnTheTabs() {
    Screen screen;
    QTabWidget tabs;
    auto* const page = new QWidget;
    screen.view("c")->setParent(page);
    tabs.addTab(screen.view("b"), "b");
    tabs.addTab(page, "c");
    showActive(tabs);
    tabs.setCurrentIndex(1);
    tabs.tabBar()->setFocus(); // a view takes the focus where it is shown first
    for (const auto& [key, shown] : {std::pair{Qt::Key_Left, "b"}, {Qt::Key_Right, "c"}}) {
      pressKey(tabs, key);
      QVERIFY(screen.view(shown)->isVisible());
      QCOMPARE(tabs.focusWidget(), tabs.tabBar());
    }
  }

  void popupsOfTheFrontLieOverItsWindow() {
    Screen screen;
    screen.run("bv b>c");
    auto* const popup = new ArrowedWindow(screen.view("b"));
    auto* const button = new QPushButton(popup);
    popup->show();
    new QWidget(screen.view("b"));
    QVERIFY(button->isEnabled());
    QCOMPARE(screen.view("b")->children().constLast(), popup);
  }
};

VELA_TEST_MAIN(CoverTest)
#include "cover_test.moc"
