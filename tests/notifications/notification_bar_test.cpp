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
    const quint64 start = f.bar->showNotification("Loading", FadeInOnly, 3000, false, nullptr, nullptr);
    QCOMPARE(f.reading(), "Loading");
    const quint64 end = f.bar->showNotification("Loaded", FadeOutOnly, 3000, false, nullptr, nullptr);
    QCOMPARE(f.reading(), "Loaded");
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
    const quint64 first = f.post(NotificationWarning, "first", 5);
    const quint64 last = f.post(NotificationInfo, "last", 5);
    const quint64 second = f.post(NotificationWarning, "second", 5);
    QCOMPARE(f.bar->waitingCount(), 2);
    QTRY_COMPARE(ended.count(), 3);
    QCOMPARE(shown, QList<QVariantList>({{first}, {second}, {last}}));
    QCOMPARE(ended, shown);
    QVERIFY(!f.host->isVisible());
  }

  void hideNotificationTakesBackOnlyTheInfo() {
    NotificationFixture f;
    const quint64 error = f.post(NotificationError, "broken");
    const quint64 warning = f.post(NotificationWarning, "odd");
    f.post(NotificationInfo, "working");
    f.bar->hideNotification();
    QCOMPARE(f.reading(), "Error: broken");
    QCOMPARE(f.bar->waitingCount(), 1);
    QVERIFY(f.bar->hideNotification(warning));
    QVERIFY(!f.bar->hideNotification(warning));
    QVERIFY(f.bar->hideNotification(error));
    QVERIFY(!f.bar->isNotificationShowing());

    f.post(NotificationError, "a");
    f.post(NotificationError, "b");
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
    f.bar->showNotification("text", fade, 0);
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
    f.bar->showNotification("text", FadeInAndOut, 0);
    f.bar->hideNotification();
    QTRY_VERIFY(!f.bar->isVisible());
    f.bar->showNotification("old", FadeInAndOut, 0);
    QTRY_VERIFY(!f.bar->graphicsEffect());
    QVERIFY(f.bar->isVisible());
    f.bar->hideNotification();
    f.bar->showNotification("new", FadeOutOnly, 0);
    QVERIFY(!f.bar->graphicsEffect());
    letTimePass(30);
    QCOMPARE(f.reading(), "new");
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
    f.post(NotificationError, "stays", 0);
    settle();
    pause(f);
    f.post(NotificationError, "stays", 1);
    letTimePass(30);
    QVERIFY(f.bar->isNotificationShowing());
    resume(f);
    QTRY_COMPARE(ended.count(), 1);
  }

  void keyboardReachesTheButtonsAndFocusReturns() {
    NotificationFixture f;
    ActionReceiver receiver;
    f.bar->showNotification("text", FadeInAndOut, 0, true, &receiver, SLOT(onAction()));
    QVERIFY(f.work->hasFocus());
    QCOMPARE(f.button(QString())->accessibleName(), "Close notification");
    f.key(Qt::Key_Tab);
    QVERIFY(f.button("Details")->hasFocus());
    f.key(Qt::Key_Tab);
    QVERIFY(f.button(QString())->hasFocus());
    f.key(Qt::Key_Escape);
    QVERIFY(!f.bar->isNotificationShowing());
    QVERIFY(f.work->hasFocus());
    QCOMPARE(receiver.calls, 0);

    f.bar->showNotification("again", FadeInAndOut, 0, false, &receiver, SLOT(onAction()));
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
    f.post(NotificationWarning, "text", 0);
    settle();
    const QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(f.bar);
    QCOMPARE(accessible->role(), QAccessible::AlertMessage);
    QCOMPARE(accessible->text(QAccessible::Name), "Warning: text");
    click(*f.button(QString()));
    QVERIFY(!f.bar->isNotificationShowing());
    QVERIFY(f.work->hasFocus());
  }

  void theNextOneTakesTheFocusOfTheCrossOnly() {
    NotificationFixture f;
    ActionReceiver receiver;
    for (const char* const first : {"action", "cross"}) {
      f.bar->showNotification(QString(first), FadeOutOnly, 0, true, &receiver, SLOT(onAction()));
      const bool isCross = first == QByteArray("cross");
      f.button(isCross ? QString() : QStringLiteral("Details"))->setFocus();
      f.bar->showNotification("next", FadeOutOnly, 0, true, nullptr, nullptr);
      QCOMPARE(f.work->hasFocus(), !isCross);
    }
  }

  void whatTheActionShowsStays() {
    NotificationFixture f;
    ActionReceiver receiver;
    receiver.then = [&] { f.post(NotificationInfo, "undone"); };
    Notification notification;
    notification.message = QStringLiteral("deleted");
    notification.actionText = QStringLiteral("Undo");
    notification.receiver = &receiver;
    notification.member = SLOT(onAction());
    f.bar->showNotification(notification);
    settle();
    click(*f.button("Undo"));
    QCOMPARE(receiver.calls, 1);
    QCOMPARE(f.reading(), "undone");
    QVERIFY(!f.button("Undo"));
  }

  void memberThatDoesNotExistMakesNoButton() {
    NotificationFixture f;
    ActionReceiver receiver;
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("No such slot ActionReceiver::gone")));
    f.bar->showNotification("text", FadeInAndOut, 0, false, &receiver, "1gone()");
    QCOMPARE(f.reading(), "text");
    QVERIFY(!f.button("Details"));
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
    f.post(NotificationInfo, "OK");
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
