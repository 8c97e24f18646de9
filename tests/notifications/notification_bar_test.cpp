// SPDX-License-Identifier: MIT
#include "notification_fixture.h"

#include <support/screen_record.h>

using namespace Vela::UiBase;
using namespace Vela::Test;

using Act = std::function<void(NotificationFixture&)>;
using Ending = std::function<void(NotificationFixture&, ActionReceiver&)>;

namespace {

class Capitals : public QTranslator {
public:
  bool isEmpty() const override { return false; }
  QString translate(const char*, const char* text, const char*, int) const override {
    return QString::fromUtf8(text).toUpper();
  }
};

} // namespace

class NotificationBarTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void barsAreSetUp() {
    NotificationFixture f;
    NotificationBar::setDefaultFadeDuration(-1);
    QCOMPARE(NotificationBar(nullptr).fadeDuration(), 0);
    NotificationBar::setDefaultFadeDuration(180);
    QCOMPARE(NotificationBar(nullptr).fadeDuration(), 180);
    QCOMPARE(f.bar->showNotification(QString(), FadeInAndOut, 0), 0);
    f.bar->showNotification("no action", FadeInAndOut, 0, true, f.work, nullptr);
    QVERIFY(!f.button("Details"));
    const quint64 id = f.post(NotificationError, "broken");
    QCOMPARE(f.bar->currentNotification(), id);
    f.post(NotificationWarning, "odd");
    f.bar->clearNotifications();
    QVERIFY(!f.bar->isNotificationShowing() && !f.bar->waitingCount() && !f.bar->currentNotification());
  }

  void timeRunsOutInTurn() {
    NotificationFixture f;
    QSignalSpy shown(f.bar, &NotificationBar::notificationShown);
    QSignalSpy ended(f.bar, &NotificationBar::notificationEnded);
    const quint64 first = f.post(NotificationWarning, "first", 5);
    const quint64 last = f.post(NotificationInfo, "last", 5);
    const quint64 second = f.post(NotificationWarning, "second", 5);
    QTRY_COMPARE(ended.count(), 3);
    QCOMPARE(shown, QList<QVariantList>({{first}, {second}, {last}}));
    QCOMPARE(ended, shown);
    f.post(NotificationError, "stays", 20);
    f.post(NotificationError, "stays", 0); // endless after all
    moveMouse(*f.bar);
    moveMouse(*f.view, {5, 290});
    letTimePass(40);
    QCOMPARE(f.reading(), "Error: stays");
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
    QVERIFY(f.bar->hideNotification(error));
    QVERIFY(!f.bar->hideNotification(error) && !f.bar->isNotificationShowing());
  }

  void fades() {
    for (const auto fade : {FadeOutOnly, FadeInOnly, FadeInAndOut}) {
      NotificationFixture f;
      f.bar->setFadeDuration(40);
      f.bar->showNotification("text", fade, 0);
      QCOMPARE(f.bar->graphicsEffect() != nullptr, fade != FadeOutOnly);
      QTRY_VERIFY(!f.bar->graphicsEffect());
      QVERIFY(f.bar->isVisible());
      f.bar->hideNotification();
      QVERIFY(!f.bar->isNotificationShowing());
      QCOMPARE(f.bar->isVisible(), fade != FadeInOnly);
      QTRY_VERIFY(!f.bar->isVisible());
    }
  }

  void hideAndShowWhileFading() {
    for (const auto& [old, next] : {std::pair(FadeInAndOut, FadeOutOnly),
                                    {FadeOutOnly, FadeInAndOut},
                                    {FadeInAndOut, FadeInAndOut},
                                    {FadeInOnly, FadeInAndOut}}) {
      NotificationFixture f;
      f.bar->setFadeDuration(20);
      f.bar->showNotification("old", old, 0);
      if (old != FadeInOnly)
        QTRY_VERIFY(!f.bar->graphicsEffect());
      f.bar->hideNotification();
      if (old == FadeInOnly)
        letTimePass(30); // it does not go on fading in
      f.bar->showNotification("new", next, 0);
      QCOMPARE(f.bar->graphicsEffect() != nullptr, old == FadeInOnly);
      letTimePass(40);
      QCOMPARE(f.reading(), "new");
      QTRY_VERIFY(!f.bar->graphicsEffect());
    }
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
        "hidden",
        [](F f) {
          f.post(NotificationError, "stays", 1);
          f.view->hide();
          letTimePass(5);
        },
        [](F f) { f.view->show(); });
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
    QVERIFY(ended.isEmpty());
    resume(f);
    QTRY_COMPARE(ended.count(), 1);
  }

  void keyboardReachesTheButtonsAndFocusReturns() {
    NotificationFixture f;
    ActionReceiver receiver;
    f.bar->showNotification("text", FadeInAndOut, 0, true, &receiver, SLOT(onAction()));
    f.key(Qt::Key_Tab);
    f.key(Qt::Key_Tab);
    QVERIFY(f.button(QString())->hasFocus());
    f.key(Qt::Key_Escape);
    QVERIFY(!f.bar->isNotificationShowing() && f.work->hasFocus());
    QCOMPARE(receiver.calls, 0);

    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Enter}) {
      f.bar->showNotification("once", FadeInAndOut, 0, false, &receiver, SLOT(onAction()));
      f.key(Qt::Key_Tab);
      f.key(key);
    }
    QCOMPARE(std::exchange(receiver.calls, 0), 2);
    f.bar->showNotification("again", FadeInAndOut, 0, false, &receiver, SLOT(onAction()));
    f.key(Qt::Key_Tab);
    VELA_COMPARE_SCREEN("notification_with_action");
    f.key(Qt::Key_Escape);
    QVERIFY2(f.bar->isNotificationShowing(), "not closable");
    f.key(Qt::Key_Return);
    QCOMPARE(receiver.calls, 1);
    QVERIFY(!f.bar->isNotificationShowing() && f.work->hasFocus());

    f.post(NotificationInfo, "last");
    f.key(Qt::Key_Tab);
    QVERIFY(f.button({})->hasFocus());
    delete f.work;
    f.key(Qt::Key_Escape);
    QVERIFY2(!f.view->focusWidget(), "there is nobody to give it back to");
  }

  void clickOnCloseKeepsTheFocusWhereItIs() {
    NotificationFixture f;
    f.post(NotificationWarning, "text", 0);
    settle();
    QCOMPARE(QAccessible::queryAccessibleInterface(f.bar)->role(), QAccessible::AlertMessage);
    QCOMPARE(f.button(QString())->toolTip(), "Close");
    VELA_COMPARE_SCREEN("warning");
    Capitals language;
    QCoreApplication::installTranslator(&language);
    settle();
    QCOMPARE(f.button(QString())->toolTip(), "CLOSE");
    QCoreApplication::removeTranslator(&language);
    QTest::mousePress(f.view->windowHandle(), Qt::LeftButton, {}, inWindow(*f.button({})));
    VELA_COMPARE_SCREEN("pressed_cross");
    QTest::mouseRelease(f.view->windowHandle(), Qt::LeftButton, {}, inWindow(*f.button({})));
    QVERIFY(!f.bar->isNotificationShowing());
    QVERIFY(f.work->hasFocus());
  }

  void whatTheActionShowsStays() {
    NotificationFixture f;
    ActionReceiver receiver;
    receiver.then = [&] { f.post(NotificationInfo, "undone"); };
    f.bar->showNotification("deleted", FadeInAndOut, 0, false, &receiver, SLOT(onAction()));
    settle();
    click(*f.button("Details"));
    QCOMPARE(f.reading(), "undone");
    QVERIFY(!f.button("Details"));
  }

  void longTextStaysInsideTheView() {
    NotificationFixture f;
    const QString text = QStringLiteral("one_word_without_blanks").repeated(60);
    f.post(NotificationError, text);
    for (const int width : {500, 220}) {
      f.view->resize(width, 300);
      settle();
      QVERIFY(f.view->rect().contains(f.host->geometry()));
      QVERIFY(f.bar->rect().contains(f.button(QString())->geometry()));
      QVERIFY(f.bar->height() < 150);
      VELA_COMPARE_SCREEN(QStringLiteral("long_notification_%1").arg(width));
    }
    QCOMPARE(f.reading(), QStringLiteral("Error: ") + text);
    const auto parts = f.bar->findChildren<QWidget*>();
    const QWidget* const label = *std::ranges::find(parts, text, &QWidget::accessibleName);
    QList<int> heights;
    for (const char* const shorter : {"one", "one\r\ntwo", "one line is not enough for this"}) {
      f.bar->clearNotifications();
      f.post(NotificationError, shorter);
      settle();
      heights += f.bar->height();
      QCOMPARE(label->toolTip(), QString());
      QVERIFY(!label->accessibleName().contains('\r'));
    }
    QVERIFY(heights[0] < heights[1] && heights[1] == heights[2]);
    for (const QString& longer : {"<" + text, text}) {
      f.bar->clearNotifications();
      f.post(NotificationError, longer);
      QCOMPARE(label->toolTip(), "<span>" + longer.toHtmlEscaped() + "</span>");
    }
  }

  // Everything a notification refers to may die at any time; most useful under the address sanitizer.
  void contentIsOwnedAndDeletedAfterTheEnd() {
    NotificationFixture f;
    QPointer<QLabel> shown = new QLabel("shown");
    QPointer<QLabel> replaced = new QLabel("replaced");
    f.bar->showNotification(replaced, FadeInOnly, 0);
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

  void contentDies() {
    for (const auto& [waiting, anotherWaits] : {std::pair(false, false), {false, true}, {true, false}}) {
      NotificationFixture f;
      f.bar->setFadeDuration(60000);
      QSignalSpy ended(f.bar, &NotificationBar::notificationEnded);
      if (waiting)
        f.post(NotificationError, "error");
      Notification notification;
      notification.severity = NotificationWarning;
      notification.content = new QLabel("content");
      const quint64 id = f.bar->showNotification(notification);
      if (anotherWaits)
        f.post(NotificationWarning, "another");
      f.view->hide();
      f.view->show();
      QCOMPARE(notification.content->isVisible(), !waiting);
      delete notification.content;
      settle();
      QCOMPARE(ended, QList<QVariantList>({{id}}));
      QCOMPARE(f.bar->waitingCount(), 0);
      QCOMPARE(f.bar->isVisible(), waiting || anotherWaits);
    }
  }

  void receiverDies() {
    for (const bool waiting : {false, true}) {
      NotificationFixture f;
      const quint64 error = waiting ? f.post(NotificationError, "error") : 0;
      auto receiver = std::make_unique<ActionReceiver>();
      f.bar->showNotification("text", FadeInOnly, 0, true, receiver.get(), SLOT(onAction()));
      if (!waiting)
        f.button("Details")->setFocus();
      receiver.reset();
      QVERIFY(f.work->hasFocus());
      f.bar->hideNotification(error);
      QCOMPARE(f.reading(), "text");
      QVERIFY(!f.button("Details"));
    }
  }

  void barDies_data() {
    using F = NotificationFixture&;
    const Rows<int, bool, Ending> row("fadeMs", "diesByItself", "end");
    row("fading in", 60000, false, [](F, ActionReceiver&) {});
    row("fading out", 60000, false, [](F f, ActionReceiver&) { f.bar->hideNotification(); });
    row("with its view", 0, true, [](F f, ActionReceiver&) { delete f.view; });
    row("in the action", 0, true, [](F f, ActionReceiver&) { click(*f.button("Details")); });
    row("when shown", 0, true, [](F f, ActionReceiver& receiver) {
      connect(f.bar, &NotificationBar::notificationShown, &receiver, &ActionReceiver::onAction);
      f.post(NotificationError, "error");
    });
    row("when ended, another waits", 0, true, [](F f, ActionReceiver& receiver) {
      const quint64 shown = f.bar->currentNotification();
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
    QCOMPARE(f.bar->showNotification(f.host, FadeInAndOut, 0), 0); // it lies in that
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

VELA_TEST_MAIN(NotificationBarTest)
#include "notification_bar_test.moc"
