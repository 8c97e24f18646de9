// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/core/scoped_connection.h>

using Vela::UiBase::ScopedConnection;

namespace {

class Dial : public QObject {
  Q_OBJECT

public:
  int value = 0;

public Q_SLOTS:
  void setValue(int newValue) { value = newValue; }

Q_SIGNALS:
  void turned(int);
};

} // namespace

class ScopedConnectionTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void theConnectionEndsWithTheObjectAndNoOther() {
    Dial sender, receiver, other;
    connect(&sender, SIGNAL(turned(int)), &other, SLOT(setValue(int)));
    {
      const ScopedConnection connection(&sender, SIGNAL(turned(int)), &receiver, SLOT(setValue(int)),
                                        Qt::AutoConnection, nullptr);
      const ScopedConnection same(&sender, SIGNAL(turned(int)), &other, SLOT(setValue(int)),
                                  Qt::AutoConnection, nullptr);
      QVERIFY(connection.IsConnected());
      Q_EMIT sender.turned(1);
    }
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("nullptr")); // once
    const ScopedConnection none(&sender, SIGNAL(turned(int)), nullptr, SLOT(setValue(int)),
                                Qt::AutoConnection, nullptr);
    QVERIFY(!none.IsConnected());
    Q_EMIT sender.turned(2);
    QCOMPARE(receiver.value, 1);
    QCOMPARE(other.value, 2);
  }

  // And so does either end.
  void theParentTakesTheConnectionAlong() {
    for (const int parent : {0, 1, 2}) {
      std::unique_ptr<Dial> dials[] = {std::make_unique<Dial>(), std::make_unique<Dial>(),
                                       std::make_unique<Dial>()};
      const QPointer<ScopedConnection> connection =
          new ScopedConnection(dials[0].get(), SIGNAL(turned(int)), dials[1].get(), SIGNAL(turned(int)),
                               Qt::AutoConnection, dials[parent].get());
      const ScopedConnection ofItsEnds(dials[0].get(), SIGNAL(turned(int)), dials[1].get(),
                                       SLOT(setValue(int)), Qt::AutoConnection, nullptr);
      QSignalSpy turned(dials[1].get(), &Dial::turned);
      dials[parent].reset();
      QVERIFY(!connection);
      QCOMPARE(ofItsEnds.IsConnected(), parent == 2); // whichever end dies first
      if (parent == 2)
        Q_EMIT dials[0]->turned(9);
      QCOMPARE(turned.count(), 0);
    }
  }
};

VELA_TEST_MAIN(ScopedConnectionTest)
#include "scoped_connection_test.moc"
