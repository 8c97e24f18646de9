// SPDX-License-Identifier: MIT
#include "mesh_files.h"
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/input.h>
#include <support/rows.h>
#include <ui_base/assistants/session_recorder.h>
#include <ui_base/assistants/session_replay.h>
#include <vlk_common_res/styles.h>
#include <workbench/language.h>
#include <workbench/mesh_loader.h>
#include <workbench/session/workbench_subject.h>

#include <QProcess>
#include <QSignalSpy>

using namespace Workbench;
using namespace Vela::UiBase;
using Test::WorkbenchFixture;

namespace {

/// Works with mouse and keys, and waits after each step until it is written.
class RecordedBench : public WorkbenchFixture {
public:
  explicit RecordedBench(const QString& file) : WorkbenchFixture({1000, 700}) {
    m_recorder.addManager(&controller());
    if (!m_recorder.start(file))
      qFatal("the session cannot be written");
    rest();
  }

  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    press(key, modifiers);
    rest();
  }
  void click(const QPoint& from, Qt::KeyboardModifiers modifiers = {}) {
    Vela::Test::clickAt(view(), middle() + from, Qt::LeftButton, modifiers);
    rest();
  }
  void drag(const QPoint& from, const QPoint& to, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mousePress(window().windowHandle(), button, {}, Vela::Test::inWindow(view(), middle() + from));
    Vela::Test::moveMouse(view(), middle() + (from + to) / 2);
    Vela::Test::moveMouse(view(), middle() + to);
    QTest::mouseRelease(window().windowHandle(), button, {}, Vela::Test::inWindow(view(), middle() + to));
    rest();
  }
  void rest() { QTRY_VERIFY(m_recorder.isUpToDate()); }

private:
  QPoint middle() { return view().rect().center(); }

  WorkbenchSubject m_subject{window()};
  SessionRecorder m_recorder{m_subject};
};

void workAWhile(RecordedBench& bench, const QString& mesh, const QString& exported) {
  bench.press(Qt::Key_O, Qt::ControlModifier);
  QVERIFY(bench.chooseFile(mesh));
  Vela::Test::showActive(bench.window()); // no window manager gives it back
  QTRY_COMPARE(bench.triangles(), std::size_t(800));
  bench.rest();
  for (int round = 0; round < 4; ++round) {
    bench.key(Qt::Key_1);
    bench.click({round * 9, 7});
    bench.key(Qt::Key_G);
    bench.click({-20, 30}, Qt::ShiftModifier);
    bench.key(Qt::Key_M, Qt::ControlModifier); // smooths what is selected
    bench.key(Qt::Key_Z);
    bench.key(Qt::Key_3);
    bench.drag({-40, -40}, {25 + round, 30});
    bench.key(Qt::Key_Delete, Qt::NoModifier);
    bench.key(Qt::Key_Z);
    bench.key(Qt::Key_2);
    bench.drag({-10, -10}, {round * 5, 20});
    bench.drag({0, 0}, {30, 10}, Qt::RightButton); // turns the view
    bench.key(Qt::Key_2, Qt::AltModifier);
    bench.key(Qt::Key_1, Qt::AltModifier);
  }
  bench.press(Qt::Key_E, Qt::ControlModifier);
  QVERIFY(bench.chooseFile(exported));
  bench.rest();
}

} // namespace

/// Sessions with the workbench.
class WorkbenchSessionTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void aSessionIsReplayedInAnotherWindowLanguageAndPalette() {
    const QTemporaryDir folder;
    const QString file = folder.filePath("work.session");
    QFile mesh(folder.filePath("blob.off"));
    QVERIFY(mesh.open(QIODevice::WriteOnly) && mesh.write(Test::offFile(Test::blob(20))) > 0);
    mesh.close();
    {
      RecordedBench bench(file);
      workAWhile(bench, mesh.fileName(), folder.filePath("copy.ply"));
    }
    QVERIFY(QFile::remove(folder.filePath("copy.ply")));
    QString error;
    const auto session = Session::fromFile(file, &error);
    QVERIFY2(session, qPrintable(error));
    QVERIFY2(session->steps.size() > 50, qPrintable(QString::number(session->steps.size())));
    QVERIFY(!session->toText(folder.path()).contains("unknown"));
    WorkbenchFixture other({500, 420});
    Language::choose(QLocale::German);
    Vela::Resource::Styles::Instance().setPalette(Vela::Resource::Dark);
    const auto asBefore = qScopeGuard([] {
      Language::choose(QLocale::English);
      Vela::Resource::Styles::Instance().setPalette(Vela::Resource::Light);
    });
    WorkbenchSubject subject(other.window());
    SessionReplay replay(subject);
    replay.addManager(&other.controller());
    QSignalSpy finished(&replay, &SessionReplay::finished);
    replay.start(*session);
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, 60'000);
    QCOMPARE(finished[0][1].toString(), QString());
    QVERIFY(QFile::exists(folder.filePath("copy.ply")));
  }

  void theProgramSaysWhereASessionDiffers_data() {
    const Vela::Test::Rows<QByteArray, int, QString> row("session", "status", "errors");
    row("whole", "command Workbench::ShowPageCommand1 on\n  page = \"photographs\"\n", 0, "");
    row("malformed", "command\n", 1, "Line 2: ");
    row("grey", "\ncommand Workbench::SmoothMeshCommand\n", 1,
        "line 3: step 1: Smooth Mesh is grey: No mesh is open.");
    row("ended", "command Workbench::QuitCommand\n", 1, "The program ended before the session did.");
    row("no such triangle", "operation Workbench::ModeCommand0 click left {\"triangle\":7}\n", 1,
        "nobody can do");
  }
  void theProgramSaysWhereASessionDiffers() {
    QFETCH(QByteArray, session);
    QFETCH(int, status);
    QFETCH(QString, errors);
    const QTemporaryDir folder;
    QFile file(folder.filePath("a.session"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("session 1\n" + session) > 0);
    file.close();
    QProcess program;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", folder.path());
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    program.setProcessEnvironment(environment);
    program.start(QCoreApplication::applicationDirPath() + "/workbench", {"--replay", file.fileName()});
    QVERIFY(program.waitForFinished(60'000));
    const QString told = QString::fromUtf8(program.readAllStandardError());
    QVERIFY2(program.exitCode() == status && told.contains(errors), qPrintable(told));
  }
};

VELA_TEST_MAIN(WorkbenchSessionTest)
#include "session_test.moc"
