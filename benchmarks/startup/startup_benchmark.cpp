// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

constexpr int usualRounds = 20;
constexpr int timeLimit = 20000; // ms
constexpr double timeAim = 1.4;
constexpr double memoryAim = 12.0;

struct Program {
  QString path;
  std::vector<double> milliseconds;
  std::vector<double> megabytes;

  bool runOnce() {
    QProcess process;
    QElapsedTimer timer;
    timer.start();
    process.start(path, QStringList());
    if (!process.waitForReadyRead(timeLimit)) // its ending does not count
      return false;
    const double elapsed = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    if (!process.waitForFinished(timeLimit) || process.exitCode() != 0)
      return false;
    milliseconds.push_back(elapsed);
    megabytes.push_back(process.readAllStandardOutput().trimmed().toDouble() / 1024);
    return true;
  }
};

double median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
  return values[values.size() / 2];
}

} // namespace

/// Starts the workbench's window and a bare main window in turn, up to their first paint.
/// Usage: startup_benchmark [rounds]
int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : usualRounds;
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  const QString folder = QCoreApplication::applicationDirPath();
  Program workbench{folder + QStringLiteral("/startup_workbench_window"), {}, {}};
  Program bare{folder + QStringLiteral("/startup_bare_window"), {}, {}};
  for (int round = 0; round < rounds + 2; ++round) {
    if (!workbench.runOnce() || !bare.runOnce()) {
      std::fputs("A program did not start\n", stderr);
      return 1;
    }
    if (round < 2) { // warms the cache
      workbench = {workbench.path, {}, {}};
      bare = {bare.path, {}, {}};
    }
  }
  const double ratio = median(workbench.milliseconds) / median(bare.milliseconds);
  const double more = median(workbench.megabytes) - median(bare.megabytes);
  std::printf(
      "start to first paint: workbench %.1f ms, bare window %.1f ms, %.2f times (aim: at most %.1f)%s\n",
      median(workbench.milliseconds), median(bare.milliseconds), ratio, timeAim,
      ratio <= timeAim ? "" : "  MISSED");
  std::printf("memory then: workbench %.1f MB, bare window %.1f MB, %.1f MB more (aim: at most %.0f)%s\n",
              median(workbench.megabytes), median(bare.megabytes), more, memoryAim,
              more <= memoryAim ? "" : "  MISSED");
  return 0;
}
