// SPDX-License-Identifier: MIT
#include "view_fuzz.h"

#include <support/test_case.h>

#include <random>

using Vela::Test::Bytes;
using Vela::Test::ViewFuzz;

class ViewFuzzTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void streamLeavesViewsAndToolsInOrder_data();
  void streamLeavesViewsAndToolsInOrder();
  void randomCallbacksLeaveViewsAndToolsInOrder();
};

// What was found once.
void ViewFuzzTest::streamLeavesViewsAndToolsInOrder_data() {
  QTest::addColumn<QString>("path");
  const auto files = QDir(QStringLiteral(VLK_FUZZ_CORPUS)).entryInfoList(QDir::Files);
  for (const QFileInfo& file : files)
    QTest::newRow(qPrintable(file.fileName())) << file.filePath();
}

void ViewFuzzTest::streamLeavesViewsAndToolsInOrder() {
  QFETCH(const QString, path);
  QFile file(path);
  QVERIFY(file.open(QIODevice::ReadOnly));
  const QByteArray bytes = file.readAll();
  ViewFuzz fuzz(Bytes(reinterpret_cast<const unsigned char*>(bytes.constData()), std::size_t(bytes.size())));
  QCOMPARE(fuzz.run(), QString());
}

// VELA_FUZZ_STEPS for a longer run, VELA_FUZZ_SEED for another one, VELA_FUZZ_KEEP for a file with the stream
// that crashes.
void ViewFuzzTest::randomCallbacksLeaveViewsAndToolsInOrder() {
  const unsigned seed = qEnvironmentVariable("VELA_FUZZ_SEED", QStringLiteral("1")).toUInt();
  const int steps = qEnvironmentVariable("VELA_FUZZ_STEPS", QStringLiteral("10000")).toInt();
  qInfo("seed %u", seed);
  std::mt19937 random(seed);
  for (int done = 0; done < steps;) {
    std::vector<unsigned char> bytes(600);
    std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<unsigned char>(random()); });
    if (qEnvironmentVariableIsSet("VELA_FUZZ_KEEP")) { // the stream of a crash
      QFile file(qEnvironmentVariable("VELA_FUZZ_KEEP"));
      QVERIFY(file.open(QIODevice::WriteOnly));
      file.write(reinterpret_cast<const char*>(bytes.data()), qint64(bytes.size()));
    }
    ViewFuzz fuzz(Bytes(bytes.data(), bytes.size()));
    const QString finding = fuzz.run();
    QVERIFY2(finding.isEmpty(),
             qPrintable(QStringLiteral("seed %1, after %2 steps: %3").arg(seed).arg(done).arg(finding)));
    done += fuzz.steps();
  }
  for (int act = 0; act < Vela::Test::ACTS; ++act)
    QVERIFY2(ViewFuzz::hits()[std::size_t(act)] > 0,
             qPrintable(QStringLiteral("act %1 was never done").arg(act)));
}

VELA_TEST_MAIN(ViewFuzzTest)
#include "view_fuzz_test.moc"
