// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/notifications/notification_queue.h>

using namespace Vela::UiBase;

namespace {

/// "w:disk" is a warning with the text "disk"; "*" after the letter means endless, "!" that it cannot be
/// closed.
NotificationQueue::Entry entryFrom(const QString& script) {
  const QString kind = script.section(QLatin1Char(':'), 0, 0);
  auto entry = std::make_unique<NotificationEntry>();
  entry->message = script.section(QLatin1Char(':'), 1);
  entry->severity = kind.startsWith(QLatin1Char('e'))   ? NotificationError
                    : kind.startsWith(QLatin1Char('w')) ? NotificationWarning
                                                        : NotificationInfo;
  entry->remainingMs = kind.contains(QLatin1Char('*')) ? 0 : 1000;
  entry->closable = !kind.contains(QLatin1Char('!'));
  return entry;
}

template <class Entries>
QString messages(const Entries& entries) {
  QStringList texts;
  for (const auto& entry : entries)
    texts << entry->message;
  return texts.join(QLatin1Char(' '));
}

} // namespace

class NotificationQueueTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void order_data() {
    const Vela::Test::Rows<QString, QString, QString> row("posts", "shownInTurn", "dropped");
    row("info replaces a waiting info", "e:a i:start i:end", "a end", "start");
    row("info waits behind a warning", "w:a i:b w:c", "a c b", "");
    row("error interrupts, warning returns first", "w:a w:b e:c e:d", "c d a b", "");
    row("endless gives way to its equal", "w*!:a w:b", "b", "a");
    row("endless that can be closed waits for the user", "w*:a w:b", "a b", "");
    row("repeated while shown", "w:a w:b w:a", "a b", "");
    row("repeated while waiting", "e:x w:a w:b w:a", "x a b", "");
    row("oldest of the least severe is dropped", "e:x e:y w:a w:b w:c", "x y b c", "a");
    row("the newcomer is the least severe", "e:a e:b e:c e:d i:i", "a b c d", "i");
  }
  void order() {
    QFETCH(QString, posts);
    NotificationQueue queue;
    queue.setLimit(3);
    NotificationQueue::Entries dropped;
    const QStringList scripts = posts.split(QLatin1Char(' '));
    for (const QString& script : scripts)
      QVERIFY(queue.post(entryFrom(script), dropped) > 0);

    NotificationQueue::Entries shown;
    do
      shown.push_back(queue.takeCurrent());
    while (queue.advance());
    QTEST(messages(shown), "shownInTurn");
    QTEST(messages(dropped), "dropped");
  }

  void interruptionKeepsTheTimeLeftAndARepeatGivesAllAgain() {
    NotificationQueue queue;
    NotificationQueue::Entries dropped;
    const quint64 id = queue.post(entryFrom("w:a"), dropped);
    queue.current()->remainingMs = 10;
    queue.post(entryFrom("e:b"), dropped);
    queue.takeCurrent();
    QVERIFY(queue.advance());
    QCOMPARE(queue.current()->remainingMs, 10);
    QCOMPARE(queue.post(entryFrom("w:a"), dropped), id);
    QCOMPARE(queue.current()->remainingMs, 1000);
  }
};

VELA_TEST_MAIN(NotificationQueueTest)
#include "notification_queue_test.moc"
