// SPDX-License-Identifier: MIT
#include "mesh_files.h"
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/rows.h>
#include <workbench/options.h>

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

using namespace Workbench;
using Vela::Test::Rows;

namespace {

struct Outcome {
  int status = -1;
  QString output;
  QString errors;
};

} // namespace

// Runs the program itself.
class CommandLineTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void initTestCase() { cleanup(); }
  void cleanup() {
    m_environment = QProcessEnvironment::systemEnvironment();
    m_environment.insert("XDG_CONFIG_HOME", path("config"));
    m_environment.insert("QT_QPA_PLATFORM", "offscreen");
    m_environment.insert("LC_ALL", "C.UTF-8");
  }

  void savesWhatTheWindowShowsAsSharpAsTheScreen() {
    const QString mesh = write("blob.off", Test::offFile(Test::blob(40)));
    QCOMPARE(run({mesh, "--screenshot", path("1x.png"), "--size", "400x300"}).status, 0);
    QCOMPARE(run({mesh, "--screenshot", path("2x.png"), "--size", "400x300"}, "2").status, 0);
    const QImage normal(path("1x.png"));
    const QImage sharp(path("2x.png"));
    QCOMPARE(normal.size(), QSize(400, 300));
    QCOMPARE(sharp.size(), normal.size() * 2);
    const int drawn = Test::meshPixels(normal.copy(40, 40, 220, 160));
    const double ratio = double(Test::meshPixels(sharp.copy(80, 80, 440, 320))) / drawn;
    QVERIFY2(drawn > 4000 && std::abs(ratio - 4) < 0.3, qPrintable(QString("%1 %2").arg(drawn).arg(ratio)));
  }

  void savesAPhotograph() {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(path("red.png")));
    const QString mesh = write("blob.off", Test::offFile(Test::blob(20)));
    QCOMPARE(run({mesh, path("red.png"), "--screenshot", path("photo.png"), "--size", "300x240"}).status, 0);
    QCOMPARE(QImage(path("photo.png")).pixelColor(150, 100), QColor(Qt::red));
    const Outcome bad = run({write("letter.jpg", "Dear Sir"), "--screenshot", path("photo.png")});
    QCOMPARE(bad.status, 1);
    QVERIFY2(bad.errors.contains("letter.jpg: It is no picture"), qPrintable(bad.errors));
    // Decoders fill up what is missing.
    QVERIFY(image.scaled(400, 300).save(path("whole.jpg")));
    QCOMPARE(run({path("whole.jpg"), "--screenshot", path("photo.png")}).status, 0);
    QFile whole(path("whole.jpg"));
    QVERIFY(whole.open(QIODevice::ReadWrite) && whole.resize(whole.size() - 2));
    const Outcome cut = run({path("whole.jpg"), "--screenshot", path("photo.png")});
    QCOMPARE(cut.status, 1);
    QVERIFY2(cut.errors.contains("whole.jpg: The file is damaged"), qPrintable(cut.errors));
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
    const Outcome outcome = run({bad, good, "--screenshot", path("bad.png"), "--size", "300x240"});
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.errors.contains(bad) && outcome.errors.contains(reason), qPrintable(outcome.errors));
    QVERIFY(!QImage(path("bad.png")).isNull());
  }

  void anImageThatCannotBeWrittenIsAnError() {
    for (const char* const name : {"no such folder/image.png", "image.xyz", "image"}) {
      const Outcome outcome = run({"--screenshot", path(name)});
      QCOMPARE(outcome.status, 1);
      QVERIFY2(outcome.errors.contains(path(name)), qPrintable(outcome.errors));
      QVERIFY(!QFile::exists(path(name)));
    }
  }

  void takesAScreenshotWithoutADisplay() {
    m_environment.remove("DISPLAY");
    m_environment.remove("WAYLAND_DISPLAY");
    m_environment.remove("QT_QPA_PLATFORM");
    QCOMPARE(run({"--screenshot=" + path("headless.png")}).status, 0);
    QVERIFY(!QImage(path("headless.png")).isNull());
  }

  void writesATrace() {
    const QString mesh = write("blob.off", Test::offFile(Test::blob(20)));
    QCOMPARE(run({mesh, "--screenshot", path("t.png"), "--trace", path("trace.json")}).status, 0);
    QFile file(path("trace.json"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QStringList names;
    for (const QJsonValue& event : QJsonDocument::fromJson(file.readAll())["traceEvents"].toArray())
      names += event["name"].toString();
    const QString begin = "CMD BEGIN Workbench::OpenMeshCommand(false)";
    const QString end = "CMD END   Workbench::OpenMeshCommand(false)";
    QVERIFY(names.contains(begin));
    QVERIFY(names.indexOf(end) > names.indexOf(begin));

    const Outcome outcome = run({"--screenshot", path("t.png"), "--trace", path("nowhere/trace.json")});
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.errors.contains("nowhere/trace.json"), qPrintable(outcome.errors));
  }

  void answersWithoutADisplay() {
    m_environment.insert("QT_QPA_PLATFORM", "no such platform");
    const Outcome help = run({"-platform", "xcb", "--help"});
    QCOMPARE(help.status, 0);
    QVERIFY(help.output.contains("--screenshot"));
    QCOMPARE(run({"--version"}).status, 0);
    const Outcome unknown = run({"--unknown"});
    QCOMPARE(unknown.status, 1);
    QVERIFY2(unknown.errors.contains("unknown"), qPrintable(unknown.errors));
    const Outcome unnamed = run({"a.obj", "--screenshot", ""});
    QCOMPARE(unnamed.status, 1);
    QVERIFY2(unnamed.errors.contains("--screenshot"), qPrintable(unnamed.errors));
  }

  void understandsSizes() {
    for (const QString text : {"640x480", "640", "0x480", "x", "-1x5", "640x480x2", "99999x99999", "ax b"}) {
      const Options options = Options::parse({"workbench", "a.obj", "--size", text, "b.obj"});
      QCOMPARE(options.answer.has_value(), text != "640x480");
      if (options.answer)
        QVERIFY(options.answer->status == 1 && options.answer->text.contains(text));
      else
        QCOMPARE(options.size, QSize(640, 480));
      QCOMPARE(options.files, QStringList({"a.obj", "b.obj"}));
    }
  }

private:
  Outcome run(const QStringList& arguments, const QString& scale = "1") {
    QProcess program;
    m_environment.insert("QT_SCALE_FACTOR", scale);
    program.setProcessEnvironment(m_environment);
    program.start(QDir(QCoreApplication::applicationDirPath()).filePath("workbench"), arguments);
    constexpr int Patience = 60000;
    if (!program.waitForFinished(Patience) || program.exitStatus() != QProcess::NormalExit)
      return {};
    return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
  }

  QString path(const QString& name) const { return m_folder.filePath(name); }
  QString write(const QString& name, const QByteArray& content) {
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
      qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
  }

  QTemporaryDir m_folder;
  QProcessEnvironment m_environment;
};

VELA_TEST_MAIN(CommandLineTest)
#include "command_line_test.moc"
