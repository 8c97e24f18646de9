// SPDX-License-Identifier: MIT
#include "view_fuzz.h"

#include <support/rows.h>

#include <random>

using Vela::Test::Bytes;
using Vela::Test::ViewFuzz;

class ViewFuzzTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  // What was found once.
  void streamLeavesViewsAndToolsInOrder_data() {
    const Vela::Test::Rows<QString> row("path");
    const auto files = QDir(QStringLiteral(VLK_FUZZ_CORPUS)).entryInfoList(QDir::Files);
    for (const QFileInfo& file : files)
      row(file.fileName().toUtf8(), file.filePath());
  }

  void streamLeavesViewsAndToolsInOrder() {
    QFETCH(const QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(ViewFuzz(Bytes(file.readAll())).run(), QString());
  }

  // VELA_FUZZ_STEPS for a longer run, VELA_FUZZ_SEED for another one, VELA_FUZZ_KEEP for a file with the
  // stream that crashes.
  void randomCallbacksLeaveViewsAndToolsInOrder() {
    const unsigned seed = qEnvironmentVariable("VELA_FUZZ_SEED", QStringLiteral("1")).toUInt();
    const int steps = qEnvironmentVariable("VELA_FUZZ_STEPS", QStringLiteral("10000")).toInt();
    qInfo("seed %u", seed);
    std::mt19937 random(seed);
    for (int done = 0; done < steps;) {
      QByteArray bytes(600, 0);
      std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<char>(random()); });
      if (qEnvironmentVariableIsSet("VELA_FUZZ_KEEP")) { // the stream of a crash
        QFile file(qEnvironmentVariable("VELA_FUZZ_KEEP"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
      }
      ViewFuzz fuzz((Bytes(bytes)));
      const QString finding = fuzz.run();
      QVERIFY2(finding.isEmpty(), qPrintable(QStringLiteral("after %1 steps: %2").arg(done).arg(finding)));
      done += fuzz.steps();
    }
  }
};

VELA_TEST_MAIN(ViewFuzzTest)
#include "view_fuzz_test.moc"
