// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/test_case.h>
#include <tqm_mesh_kernel/kernel.h>

#include <stdexcept>
#include <thread>
#include <utility>

using namespace Taren::Core;

namespace {

/// Notes "+name" when it starts and "-name" when it ends; what it does instead is told by the name's mark.
class NotingService : public IService {
public:
  NotingService(QString name, QStringList& notes, Kernel& kernel)
      : m_name(std::move(name)), m_notes(notes), m_kernel(kernel) {}

  ERcmStatus Initialize() override {
    m_notes << QLatin1Char('+') + m_name;
    if (m_name.endsWith(QLatin1Char('!')))
      throw std::runtime_error("no room");
    if (m_name.endsWith(QLatin1Char('#')))
      m_kernel.stop();
    return m_name.endsWith(QLatin1Char('?')) ? RcmUnavailable : RcmSuccess;
  }
  void Terminate() override {
    m_notes << QLatin1Char('-') + m_name;
    if (m_name.endsWith(QLatin1Char('~')))
      throw 7;
  }
  QString ServiceName() const override { return m_name; }

private:
  QString m_name;
  QStringList& m_notes;
  Kernel& m_kernel;
};

QStringList names(const QList<Waypoint>& waypoints) {
  QStringList result;
  for (const Waypoint& waypoint : waypoints)
    result << waypoint.name;
  return result;
}

} // namespace

class KernelHostTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void servicesStartInOrderAndEndInReverse_data() {
    const Vela::Test::Rows<QString, ERcmStatus, QString, QString> row("services", "status", "notes",
                                                                      "warning");
    row("all start", "a b c", RcmSuccess, "+a +b +c | -c -b -a", {});
    row("one fails half-way", "a b c? d", RcmUnavailable, "+a +b +c? -b -a |", {});
    row("one throws", "a b! c", RcmFailure, "+a +b! -a |", R"(The service "b!" failed to start: no room)");
    row("one stops the kernel", "a b# c", RcmFailure, "+a +b# -a -b# |", {});
    row("one throws at its end", "a b~ c", RcmSuccess, "+a +b~ +c | -c -b~ -a",
        R"(The service "b~" failed to end)");
  }
  void servicesStartInOrderAndEndInReverse() {
    QFETCH(QString, services);
    QFETCH(ERcmStatus, status);
    QFETCH(QString, warning);
    QStringList notes;
    Kernel kernel;
    const QStringList serviceNames = services.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& name : serviceNames)
      kernel.registerService(std::make_shared<NotingService>(name, notes, kernel));
    if (!warning.isEmpty())
      QTest::ignoreMessage(QtWarningMsg, qUtf8Printable(warning));

    QCOMPARE(kernel.start(), status);
    QCOMPARE(kernel.isStarted(), status == RcmSuccess);
    notes << QStringLiteral("|");
    kernel.stop();
    kernel.stop();
    QTEST(notes.join(QLatin1Char(' ')), "notes");
    QVERIFY(!kernel.isStarted());
  }

  void servicesAreRegisteredBeforeTheStart() {
    QStringList notes;
    Kernel kernel;
    const auto a = std::make_shared<NotingService>(QStringLiteral("a"), notes, kernel);
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.registerService(nullptr));
    kernel.registerService(a);
    QCOMPARE(kernel.start(), RcmSuccess);
    QVERIFY_THROWS_EXCEPTION(std::logic_error, kernel.registerService(a));
    QVERIFY_THROWS_EXCEPTION(std::logic_error, kernel.start());
    kernel.stop();
    QCOMPARE(kernel.start(), RcmSuccess);
    QCOMPARE(notes.join(QLatin1Char(' ')), "+a -a +a");
  }

  void theNewestWaypointsAreKeptInOrder() {
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, WaypointRing(0));
    WaypointRing ring(3);
    for (int i = 1; i <= 7; ++i)
      ring.record(QString::number(i));
    QCOMPARE(names(ring.waypoints()), (QStringList{"5", "6", "7"}));
    ring.clear();
    ring.record("8");
    QCOMPARE(names(ring.waypoints()), QStringList{"8"});
  }

  void waypointsComeFromAnyThread() {
    constexpr int perThread = 2000;
    Kernel kernel(1000);
    {
      std::vector<std::jthread> threads;
      for (int thread = 0; thread < 3; ++thread) {
        threads.emplace_back([&kernel] {
          for (int i = 0; i < perThread; ++i)
            kernel.ProfilerWaypoint("CMD BEGIN");
        });
      }
      for (int i = 0; i < 20; ++i)
        QVERIFY(kernel.waypoints().waypoints().size() <= 1000);
    }
    const QList<Waypoint> kept = kernel.waypoints().waypoints();
    QCOMPARE(kept.size(), 1000);
    QVERIFY(std::ranges::is_sorted(kept, {}, &Waypoint::time));
    QSet<quint64> numbers;
    for (const Waypoint& waypoint : kept)
      numbers.insert(waypoint.thread);
    QVERIFY(numbers.size() <= 3);
  }
};

VELA_TEST_MAIN(KernelHostTest)
#include "kernel_host_test.moc"
