// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/core/scoped_connection.h>

#include <QRegularExpression>
#include <QSignalSpy>

using Vela::UiBase::ScopedConnection;

namespace {

class Dial : public QObject {
  Q_OBJECT

public:
  using QObject::QObject;
  int value = 0;
  QObject* lastGone = nullptr;

public Q_SLOTS:
  void setValue(int newValue) { value = newValue; }
  void noteGone(QObject* object) { lastGone = object; }

Q_SIGNALS:
  void turned(int value);
};

} // namespace

class ScopedConnectionTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void theConnectionEndsWithTheObject() {
    Dial sender, receiver;
    {
      const ScopedConnection connection(&sender, SIGNAL(turned(int)), &receiver, SLOT(setValue(int)),
                                        Qt::AutoConnection, nullptr);
      QVERIFY(connection.IsConnected());
      Q_EMIT sender.turned(1);
      QCOMPARE(receiver.value, 1);
    }
    Q_EMIT sender.turned(2);
    QCOMPARE(receiver.value, 1);
  }

  void onlyItsOwnConnectionEnds() {
    Dial sender, receiver;
    connect(&sender, SIGNAL(turned(int)), &receiver, SLOT(setValue(int)));
    connect(&sender, SIGNAL(destroyed(QObject*)), &receiver, SLOT(noteGone(QObject*)));
    {
      const ScopedConnection connection(&sender, SIGNAL(turned(int)), &receiver, SLOT(setValue(int)),
                                        Qt::AutoConnection, nullptr);
    }
    Q_EMIT sender.turned(3);
    QCOMPARE(receiver.value, 3);
  }

  void theSenderMayBeItsOwnReceiver() {
    QObject parent;
    Dial dial;
    auto* const connection =
        new ScopedConnection(&dial, SIGNAL(turned(int)), SLOT(setValue(int)), Qt::DirectConnection, &parent);
    QVERIFY(connection->IsConnected());
    Q_EMIT dial.turned(4);
    QCOMPARE(dial.value, 4);
    delete connection;
    Q_EMIT dial.turned(5);
    QCOMPARE(dial.value, 4);
  }

  void theTypeOfTheConnectionCounts() {
    Dial sender, receiver;
    const ScopedConnection connection(&sender, SIGNAL(turned(int)), &receiver, SLOT(setValue(int)),
                                      Qt::QueuedConnection, nullptr);
    Q_EMIT sender.turned(6);
    QCOMPARE(receiver.value, 0);
    Vela::Test::settle();
    QCOMPARE(receiver.value, 6);

    const ScopedConnection twin(&sender, SIGNAL(turned(int)), &receiver, SLOT(setValue(int)),
                                Qt::UniqueConnection, nullptr);
    QVERIFY(!twin.IsConnected());
  }

  void aSignalMayLeadToASignal() {
    Dial sender, receiver;
    QSignalSpy turned(&receiver, &Dial::turned);
    const ScopedConnection connection(&sender, SIGNAL(turned(int)), &receiver, SIGNAL(turned(int)),
                                      Qt::AutoConnection, nullptr);
    Q_EMIT sender.turned(7);
    QCOMPARE(turned.count(), 1);
  }

  void aRefusedConnectionIsNone() {
    Dial sender, receiver;
    connect(&sender, SIGNAL(turned(int)), &receiver, SLOT(setValue(int)));
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("No such signal .*pushed\\(int\\)")));
    {
      const ScopedConnection connection(&sender, SIGNAL(pushed(int)), &receiver, SLOT(setValue(int)),
                                        Qt::AutoConnection, nullptr);
      QVERIFY(!connection.IsConnected());
    }
    Q_EMIT sender.turned(8);
    QCOMPARE(receiver.value, 8);

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(
                                           "^QObject::connect: Cannot connect .* to \\(nullptr\\)")));
    const ScopedConnection toNobody(&sender, SIGNAL(turned(int)), nullptr, SLOT(setValue(int)),
                                    Qt::AutoConnection, nullptr);
    QVERIFY(!toNobody.IsConnected());
  }

  void anEndThatDiesEndsTheConnection_data() {
    QTest::addColumn<bool>("senderDies");
    QTest::newRow("sender") << true;
    QTest::newRow("receiver") << false;
  }
  void anEndThatDiesEndsTheConnection() {
    QFETCH(bool, senderDies);
    auto sender = std::make_unique<Dial>();
    auto receiver = std::make_unique<Dial>();
    ScopedConnection connection(sender.get(), SIGNAL(turned(int)), receiver.get(), SLOT(setValue(int)),
                                Qt::AutoConnection, nullptr);
    (senderDies ? sender : receiver).reset();
    QVERIFY(!connection.IsConnected());
    (senderDies ? receiver : sender).reset();
    QVERIFY(!connection.IsConnected());
  }

  void theDestroyedSignalItselfIsDelivered() {
    Dial receiver;
    auto sender = std::make_unique<QObject>();
    const QObject* const plain = sender.get();
    const ScopedConnection connection(plain, SIGNAL(destroyed(QObject*)), &receiver, SLOT(noteGone(QObject*)),
                                      Qt::AutoConnection, nullptr);
    sender.reset();
    QCOMPARE(receiver.lastGone, plain);
    QVERIFY(!connection.IsConnected());
  }

  void theParentTakesTheConnectionAlong_data() {
    QTest::addColumn<QString>("parent");
    QTest::newRow("third object") << "third";
    QTest::newRow("sender") << "sender";
    QTest::newRow("receiver") << "receiver";
  }
  void theParentTakesTheConnectionAlong() {
    QFETCH(QString, parent);
    auto third = std::make_unique<QObject>();
    auto sender = std::make_unique<Dial>();
    auto receiver = std::make_unique<Dial>();
    QObject* const owner = parent == QStringLiteral("third")    ? third.get()
                           : parent == QStringLiteral("sender") ? sender.get()
                                                                : receiver.get();
    const QPointer<ScopedConnection> connection = new ScopedConnection(
        sender.get(), SIGNAL(turned(int)), receiver.get(), SLOT(setValue(int)), Qt::AutoConnection, owner);
    if (owner == third.get())
      third.reset();
    else
      (owner == sender.get() ? sender : receiver).reset();
    QVERIFY(!connection);
    if (sender && receiver) {
      Q_EMIT sender->turned(9);
      QCOMPARE(receiver->value, 0);
    }
  }
};

VELA_TEST_MAIN(ScopedConnectionTest)
#include "scoped_connection_test.moc"
