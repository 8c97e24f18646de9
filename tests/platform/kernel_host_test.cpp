// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/test_case.h>
#include <tqm_mesh_kernel/kernel.h>

#include <QCoreApplication>

#include <stdexcept>
#include <thread>

using namespace Taren::Core;

namespace {

/// Notes "+name" when it starts and "-name" when it ends; what it does instead is told by the name's mark.
class NotingService : public IService {
public:
  NotingService(const QString& name, QStringList& notes) : m_name(name), m_notes(notes) {}

  ERcmStatus Initialize() override {
    m_notes << QLatin1Char('+') + m_name;
    if (m_name.endsWith(QLatin1Char('!')))
      throw std::runtime_error("no room");
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
};

} // namespace

class KernelHostTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void servicesStartInOrderAndEndInReverse_data() {
    const Vela::Test::Rows<QString, ERcmStatus, QString, QString> row("services", "status", "notes",
                                                                      "warning");
    row("one fails half-way", "a b c? d", RcmUnavailable, "+a +b +c? -b -a |", {});
    row("one throws", "a b! c", RcmFailure, "+a +b! -a |", R"(The service "b!" failed to start: no room)");
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
      kernel.registerService(std::make_shared<NotingService>(name, notes));
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

  void waypointsComeFromAnyThread() {
    Kernel kernel(1000);
    {
      std::vector<std::jthread> threads;
      for (int thread = 0; thread < 3; ++thread) {
        threads.emplace_back([&kernel] {
          for (int i = 0; i < 2000; ++i)
            kernel.ProfilerWaypoint("CMD BEGIN");
        });
      }
    }
    const QList<Waypoint> kept = kernel.waypoints().waypoints();
    QCOMPARE(kept.size(), 1000);
    QVERIFY(std::ranges::is_sorted(kept, {}, &Waypoint::time));
  }
};

VELA_TEST_MAIN(KernelHostTest)
#include "kernel_host_test.moc"
