// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/rows.h>

using namespace Workbench;
using Vela::Test::Rows;

// Runs the program itself.
class CommandLineTest : public Vela::Test::TestCase, private Test::TestFolder {
  Q_OBJECT

private Q_SLOTS:
  void init() {
    m_environment = QProcessEnvironment::systemEnvironment();
    m_environment.insert("XDG_CONFIG_HOME", path("config"));
    m_environment.insert("QT_QPA_PLATFORM", "offscreen");
    m_environment.insert("LC_ALL", "C.UTF-8");
  }

  void savesWhatTheWindowShowsAsSharpAsTheScreen() {
    const QString mesh = write("blob.off", Test::offFile(Test::blob(40)));
    QCOMPARE(run({mesh, "--screenshot", path("1x.png"), "--size", "400x300"}), 0);
    QCOMPARE(run({mesh, "--screenshot", path("2x.png"), "--size", "400x300"}, "2"), 0);
    const QImage normal(path("1x.png"));
    const QImage sharp(path("2x.png"));
    QCOMPARE(normal.size(), QSize(400, 300));
    QCOMPARE(sharp.size(), normal.size() * 2);
    const int drawn = Test::meshPixels(normal.copy(40, 40, 220, 160));
    const double ratio = double(Test::meshPixels(sharp.copy(80, 80, 440, 320))) / drawn;
    QVERIFY2(drawn > 4000 && std::abs(ratio - 4) < 0.3, qPrintable(QString("%1 %2").arg(drawn).arg(ratio)));
  }

  void aBadFileIsNamedWithTheReason_data() {
    const Rows<QString, QByteArray, QString> row("name", "content", "reason");
    row("missing", "missing.obj", {}, "does not exist");
    row("name beyond ASCII", QStringLiteral("Größe √2.off"), "OFF\n", "damaged");
    row("folder", "", {}, "not a file");
  }
  void aBadFileIsNamedWithTheReason() {
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    const QString bad = content.isEmpty() ? path(name) : write(name, content);
    const QString good = write("good.off", Test::offFile(Test::blob(20)));
    QCOMPARE(run({bad, good, "--screenshot", path("bad.png"), "--size", "300x240"}), 1);
    QVERIFY2(m_errors.contains(bad) && m_errors.contains(reason), qPrintable(m_errors));
    QVERIFY(!QImage(path("bad.png")).isNull());
  }

  void anImageThatCannotBeWrittenIsAnError() {
    for (const char* const name : {"no such folder/image.png", "image.xyz", "image"}) {
      QCOMPARE(run({"--screenshot", path(name)}), 1);
      QVERIFY2(m_errors.contains(path(name)), qPrintable(m_errors));
      QVERIFY(!QFile::exists(path(name)));
    }
  }

  void aSessionThatDiffersIsToldWhere_data() {
    const Rows<QByteArray, int, QString> row("session", "status", "errors");
    row("whole", "command Workbench::ShowPageCommand1 on\n  page = \"photographs\"\n", 0, "");
    row("malformed", "command\n", 1, "Line 2: ");
    row("grey", "\ncommand Workbench::SmoothMeshCommand\n", 1,
        "line 3: step 1: Smooth Mesh is grey: No mesh is open.");
    row("ended", "command Workbench::QuitCommand\n", 1, "The program ended before the session did.");
    row("no such triangle", "operation Workbench::ModeCommand0 click left {\"triangle\":7}\n", 1,
        "nobody can do");
  }
  void aSessionThatDiffersIsToldWhere() {
    QFETCH(QByteArray, session);
    QFETCH(QString, errors);
    QTEST(run({"--replay", write("a.session", "session 1\n" + session)}), "status");
    QVERIFY2(m_errors.contains(errors), qPrintable(m_errors));
  }

  void answersWithoutADisplay() {
    m_environment.insert("QT_QPA_PLATFORM", "no such platform");
    QCOMPARE(run({"-platform", "xcb", "--help"}), 0);
    QVERIFY(m_output.contains("--screenshot"));
    for (const char* const text : {"0x480", "640x480x2", "99999x99999"}) {
      QCOMPARE(run({"--size", text}), 1);
      QVERIFY2(m_errors.contains(text), qPrintable(m_errors));
    }
  }

private:
  /// @return its exit code, -1 when it did not come to its end.
  int run(const QStringList& arguments, const QString& scale = "1") {
    QProcess program;
    m_environment.insert("QT_SCALE_FACTOR", scale);
    program.setProcessEnvironment(m_environment);
    program.start(QDir(QCoreApplication::applicationDirPath()).filePath("workbench"), arguments);
    constexpr int Patience = 60000;
    if (!program.waitForFinished(Patience) || program.exitStatus() != QProcess::NormalExit)
      return -1;
    m_output = QString::fromUtf8(program.readAllStandardOutput());
    m_errors = QString::fromUtf8(program.readAllStandardError());
    return program.exitCode();
  }
  QProcessEnvironment m_environment;
  QString m_output;
  QString m_errors;
};

VELA_TEST_MAIN(CommandLineTest)
#include "command_line_test.moc"
