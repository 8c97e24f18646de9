// SPDX-License-Identifier: MIT
#include "notification_fixture.h"

#include <support/test_case.h>

#include <QAccessible>
#include <QApplication>
#include <QGraphicsEffect>
#include <QLabel>
#include <QSignalSpy>

using namespace Vela::UiBase;
using namespace Vela::Test;

using Act = std::function<void(NotificationFixture&)>;

class NotificationBarTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void endMessageReplacesStartMessage() {
    NotificationFixture f;
    QSignalSpy ended(f.bar, &NotificationBar::notificationEnded);
    QVERIFY(!f.bar->isVisible() && !f.host->isVisible());
    const quint64 start =
        f.bar->showNotification(QStringLiteral("Loading"), FadeInOnly, 3000, false, nullptr, nullptr);
    QCOMPARE(f.reading(), QStringLiteral("Loading"));
    const quint64 end =
        f.bar->showNotification(QStringLiteral("Loaded"), FadeOutOnly, 3000, false, nullptr, nullptr);
    QCOMPARE(f.reading(), QStringLiteral("Loaded"));
    QCOMPARE(f.bar->currentNotification(), end);
    QCOMPARE(ended, QList<QVariantList>({{start}}));

    f.bar->hideNotification();
    QVERIFY(!f.bar->isNotificationShowing() && !f.host->isVisible());
    QCOMPARE(ended.count(), 2);
  }

  void timeRunsOutInTurn() {
    NotificationFixture f;
    QSignalSpy shown(f.bar, &NotificationBar::notificationShown);
    QSignalSpy ended(f.bar, &NotificationBar::notificationEnded);
    const quint64 first = f.post(NotificationWarning, QStringLiteral("first"), 5);
    const quint64 last = f.post(NotificationInfo, QStringLiteral("last"), 5);
    const quint64 second = f.post(NotificationWarning, QStringLiteral("second"), 5);
    QCOMPARE(f.bar->waitingCount(), 2);
    QTRY_COMPARE(ended.count(), 3);
    QCOMPARE(shown, QList<QVariantList>({{first}, {second}, {last}}));
    QCOMPARE(ended, shown);
    QVERIFY(!f.host->isVisible());
  }

  void hideNotificationTakesBackOnlyTheInfo() {
    NotificationFixture f;
    const quint64 error = f.post(NotificationError, QStringLiteral("broken"));
    const quint64 warning = f.post(NotificationWarning, QStringLiteral("odd"));
    f.post(NotificationInfo, QStringLiteral("working"));
    f.bar->hideNotification();
    QCOMPARE(f.reading(), QStringLiteral("Error: broken"));
    QCOMPARE(f.bar->waitingCount(), 1);
    QVERIFY(f.bar->hideNotification(warning));
    QVERIFY(!f.bar->hideNotification(warning));
    QVERIFY(f.bar->hideNotification(error));
    QVERIFY(!f.bar->isNotificationShowing());

    f.post(NotificationError, QStringLiteral("a"));
    f.post(NotificationError, QStringLiteral("b"));
    f.bar->clearNotifications();
    QVERIFY(!f.bar->isVisible() && f.bar->waitingCount() == 0);
  }

  void fades_data() {
    const Rows<ENotificationFadeOption, bool, bool> row("fade", "fadesIn", "fadesOut");
    row("out only", FadeOutOnly, false, true);
    row("in only", FadeInOnly, true, false);
    row("in and out", FadeInAndOut, true, true);
  }
  void fades() {
    QFETCH(ENotificationFadeOption, fade);
    QFETCH(bool, fadesIn);
    NotificationFixture f;
    f.bar->setFadeDuration(40);
    f.bar->showNotification(QStringLiteral("text"), fade, 0);
    QCOMPARE(f.bar->graphicsEffect() != nullptr, fadesIn);
    QTRY_VERIFY(!f.bar->graphicsEffect());
    QVERIFY(f.bar->isVisible());
    f.bar->hideNotification();
    QVERIFY(!f.bar->isNotificationShowing());
    QTEST(f.bar->isVisible(), "fadesOut");
    QTRY_VERIFY(!f.bar->isVisible());
  }

  void hideAndShowWhileFading() {
    NotificationFixture f;
    f.bar->setFadeDuration(20);
    f.bar->showNotification(QStringLiteral("text"), FadeInAndOut, 0);
    f.bar->hideNotification();
    QTRY_VERIFY(!f.bar->isVisible());
    f.bar->showNotification(QStringLiteral("old"), FadeInAndOut, 0);
    QTRY_VERIFY(!f.bar->graphicsEffect());
    QVERIFY(f.bar->isVisible());
    f.bar->hideNotification();
    f.bar->showNotification(QStringLiteral("new"), FadeOutOnly, 0);
    QVERIFY(!f.bar->graphicsEffect());
    letTimePass(30);
    QCOMPARE(f.reading(), QStringLiteral("new"));
    QVERIFY(!f.bar->graphicsEffect());
  }

  void timePauses_data() {
    using F = NotificationFixture&;
    const Rows<Act, Act> row("pause", "resume");
    row(
        "mouse", [](F f) { moveMouse(*f.bar); },
        [](F f) {
          moveMouse(*f.view, {5, 290});
        });
    row(
        "focus", [](F f) { f.button({})->setFocus(); }, [](F f) { f.work->setFocus(); });
    row(
        "hidden", [](F f) { f.view->hide(); }, [](F f) { f.view->show(); });
  }
  void timePauses() {
    QFETCH(Act, pause);
    QFETCH(Act, resume);
    NotificationFixture f;
    QSignalSpy ended(f.bar, &NotificationBar::notificationEnded);
    f.post(NotificationError, QStringLiteral("stays"), 0);
    settle();
    pause(f);
    f.post(NotificationError, QStringLiteral("stays"), 1);
    letTimePass(30);
    QVERIFY(f.bar->isNotificationShowing());
    resume(f);
    QTRY_COMPARE(ended.count(), 1);
  }

  void keyboardReachesTheButtonsAndFocusReturns() {
    NotificationFixture f;
    ActionReceiver receiver;
    f.bar->showNotification(QStringLiteral("text"), FadeInAndOut, 0, true, &receiver, SLOT(onAction()));
    QVERIFY(f.work->hasFocus());
    QCOMPARE(f.button(QString())->accessibleName(), QStringLiteral("Close notification"));
    f.key(Qt::Key_Tab);
    QVERIFY(f.button(QStringLiteral("Details"))->hasFocus());
    f.key(Qt::Key_Tab);
    QVERIFY(f.button(QString())->hasFocus());
    f.key(Qt::Key_Escape);
    QVERIFY(!f.bar->isNotificationShowing());
    QVERIFY(f.work->hasFocus());
    QCOMPARE(receiver.calls, 0);

    f.bar->showNotification(QStringLiteral("again"), FadeInAndOut, 0, false, &receiver, SLOT(onAction()));
    f.key(Qt::Key_Tab);
    f.key(Qt::Key_Escape);
    QVERIFY2(f.bar->isNotificationShowing(), "not closable");
    f.key(Qt::Key_Return);
    QCOMPARE(receiver.calls, 1);
    QVERIFY(!f.bar->isNotificationShowing());
    QVERIFY(f.work->hasFocus());
  }

  void clickOnCloseKeepsTheFocusWhereItIs() {
    NotificationFixture f;
    f.post(NotificationWarning, QStringLiteral("text"), 0);
    settle();
    const QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(f.bar);
    QCOMPARE(accessible->role(), QAccessible::AlertMessage);
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Warning: text"));
    click(*f.button(QString()));
    QVERIFY(!f.bar->isNotificationShowing());
    QVERIFY(f.work->hasFocus());
  }

  void whatTheActionShowsStays() {
    NotificationFixture f;
    ActionReceiver receiver;
    receiver.then = [&] { f.post(NotificationInfo, QStringLiteral("undone")); };
    Notification notification;
    notification.message = QStringLiteral("deleted");
    notification.actionText = QStringLiteral("Undo");
    notification.receiver = &receiver;
    notification.member = SLOT(onAction());
    f.bar->showNotification(notification);
    settle();
    click(*f.button(QStringLiteral("Undo")));
    QCOMPARE(receiver.calls, 1);
    QCOMPARE(f.reading(), QStringLiteral("undone"));
    QVERIFY(!f.button(QStringLiteral("Undo")));
  }

  void memberThatDoesNotExistMakesNoButton() {
    NotificationFixture f;
    ActionReceiver receiver;
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("No such slot ActionReceiver::gone")));
    f.bar->showNotification(QStringLiteral("text"), FadeInAndOut, 0, false, &receiver, "1gone()");
    QCOMPARE(f.reading(), QStringLiteral("text"));
    QVERIFY(!f.button(QStringLiteral("Details")));
  }

  void longTextStaysInsideTheView() {
    NotificationFixture f;
    const QString text = QStringLiteral("/a/path/without/blanks").repeated(60);
    f.post(NotificationError, text);
    for (const int width : {500, 220}) {
      f.view->resize(width, 300);
      settle();
      QVERIFY(f.view->rect().contains(f.host->geometry()));
      QVERIFY(f.bar->rect().contains(f.button(QString())->geometry()));
      QVERIFY(f.bar->height() < 150);
    }
    QWidget* label = f.bar->childAt(f.bar->rect().center());
    QVERIFY(label && label->toolTip().contains(text));
    QCOMPARE(f.reading(), QStringLiteral("Error: ") + text);
  }

  void shortTextStaysOnOneLine() {
    NotificationFixture f;
    f.post(NotificationInfo, QStringLiteral("OK"));
    settle();
    const int height = f.bar->height();
    for (const char* const name : {"cube.off", "elephant.off", "armadillo.off", "Fitting, at last.off"}) {
      f.post(NotificationInfo, QStringLiteral("Opened ") + QLatin1String(name));
      settle();
      QVERIFY2(f.reading().contains(QLatin1String(name)) && f.bar->height() == height, name);
    }
  }
};

VELA_TEST_MAIN(NotificationBarTest)
#include "notification_bar_test.moc"
