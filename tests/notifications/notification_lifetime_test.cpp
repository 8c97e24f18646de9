// SPDX-License-Identifier: MIT
#include "notification_fixture.h"

#include <support/test_case.h>

#include <QLabel>
#include <QSignalSpy>

using namespace Vela::UiBase;
using Vela::Test::Rows;
using Vela::Test::settle;

using Ending = std::function<void(NotificationFixture&, ActionReceiver&)>;

/// Everything a notification refers to may die at any time; most useful under the address sanitizer.
class NotificationLifetimeTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void contentIsOwnedAndDeletedAfterTheEnd() {
    NotificationFixture f;
    QPointer<QLabel> shown = new QLabel("shown");
    QPointer<QLabel> replaced = new QLabel("replaced");
    f.bar->showNotification(replaced, FadeInOnly, 0);
    QVERIFY(replaced->isVisible());
    QCOMPARE(f.bar->showNotification(replaced, FadeInOnly, 0), quint64(0));
    f.bar->showNotification(shown, FadeOutOnly, 0);
    settle();
    QVERIFY(shown->isVisible() && !replaced);
    const quint64 error = f.post(NotificationError, "error", 0);
    settle();
    QVERIFY(shown && !shown->isVisible());
    f.bar->hideNotification(error); // what was interrupted comes back
    QVERIFY(shown && shown->isVisible());
    f.bar->setFadeDuration(30);
    f.bar->hideNotification();
    settle();
    QVERIFY(shown && shown->isVisible()); // while it fades out
    QTRY_VERIFY(!shown && !f.bar->isVisible());
  }

  void contentDies_data() {
    const Rows<bool, bool> row("waiting", "anotherWaits");
    row("shown", false, false);
    row("shown, another waits", false, true);
    row("waiting", true, false);
  }
  void contentDies() {
    QFETCH(bool, waiting);
    QFETCH(bool, anotherWaits);
    NotificationFixture f;
    f.bar->setFadeDuration(60000);
    QSignalSpy ended(f.bar, &NotificationBar::notificationEnded);
    if (waiting)
      f.post(NotificationError, "error");
    Notification notification;
    notification.severity = NotificationWarning;
    notification.durationMs = 0;
    notification.content = new QLabel("content");
    const quint64 id = f.bar->showNotification(notification);
    if (anotherWaits)
      f.post(NotificationWarning, "another");
    delete notification.content;
    settle();
    QCOMPARE(ended, QList<QVariantList>({{id}}));
    QCOMPARE(f.bar->waitingCount(), 0);
    QCOMPARE(f.bar->isVisible(), waiting || anotherWaits);
  }

  void receiverDies_data() {
    const Rows<bool> row("waiting");
    row("shown", false);
    row("waiting", true);
  }
  void receiverDies() {
    QFETCH(bool, waiting);
    NotificationFixture f;
    const quint64 error = waiting ? f.post(NotificationError, "error") : 0;
    auto receiver = std::make_unique<ActionReceiver>();
    f.bar->showNotification("text", FadeInOnly, 0, true, receiver.get(), SLOT(onAction()));
    if (!waiting) {
      f.button("Details")->setFocus();
      f.key(Qt::Key_Tab);
      QVERIFY(f.button("Details"));
    }
    receiver.reset();
    f.bar->hideNotification(error);
    QCOMPARE(f.reading(), "text");
    QVERIFY(!f.button("Details"));
    QVERIFY(f.button(QString()));
  }

  void barDies_data() {
    using F = NotificationFixture&;
    const Rows<int, bool, Ending> row("fadeMs", "diesByItself", "end");
    row("fading in", 60000, false, [](F, ActionReceiver&) {});
    row("fading out", 60000, false, [](F f, ActionReceiver&) { f.bar->hideNotification(); });
    row("with a queue", 0, false, [](F f, ActionReceiver&) {
      f.post(NotificationError, "error");
      f.bar->showNotification(new QLabel("waits"), FadeInAndOut, 0);
    });
    row("with its view", 0, true, [](F f, ActionReceiver&) { delete f.view; });
    row("in the action", 0, true, [](F f, ActionReceiver&) { Vela::Test::click(*f.button("Details")); });
    row("when shown", 0, true, [](F f, ActionReceiver& receiver) {
      connect(f.bar, &NotificationBar::notificationShown, &receiver, &ActionReceiver::onAction);
      f.post(NotificationError, "error");
    });
    for (const bool anotherWaits : {false, true})
      row(anotherWaits ? "when ended, another waits" : "when ended", 0, true,
          [anotherWaits](F f, ActionReceiver& receiver) {
            const quint64 shown = f.bar->currentNotification();
            if (anotherWaits)
              f.post(NotificationError, "error");
            connect(f.bar, &NotificationBar::notificationEnded, &receiver, &ActionReceiver::onAction);
            f.bar->hideNotification(shown);
          });
  }
  void barDies() {
    QFETCH(int, fadeMs);
    QFETCH(Ending, end);
    NotificationFixture f;
    ActionReceiver receiver;
    receiver.then = [&] { delete f.bar; };
    f.bar->setFadeDuration(fadeMs);
    f.bar->showNotification(new QLabel("content"), FadeInAndOut, 0, true, &receiver, SLOT(onAction()));
    settle();
    end(f, receiver);
    QTEST(f.bar.isNull(), "diesByItself");
    delete f.bar;
    settle();
    QVERIFY(!f.host || !f.host->isVisible());
  }

  void listenersMayShowAndHide() {
    NotificationFixture f;
    int rounds = 0;
    connect(f.bar, &NotificationBar::notificationEnded, f.bar, [&] {
      if (++rounds < 5)
        f.post(NotificationWarning, QStringLiteral("round %1").arg(rounds), 0);
      if (rounds == 2)
        f.bar->hideNotification(f.bar->currentNotification());
    });
    const quint64 first = f.post(NotificationWarning, "first", 0);
    f.bar->hideNotification(first);
    while (f.bar->isNotificationShowing())
      f.bar->hideNotification(f.bar->currentNotification());
    QCOMPARE(rounds, 5);
    QVERIFY(!f.bar->isVisible());
  }
};

VELA_TEST_MAIN(NotificationLifetimeTest)
#include "notification_lifetime_test.moc"
