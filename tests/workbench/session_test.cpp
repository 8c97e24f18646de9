// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <ui_base/assistants/session_recorder.h>
#include <ui_base/assistants/session_replay.h>
#include <vlk_common_res/styles.h>
#include <workbench/language.h>
#include <workbench/session/workbench_subject.h>

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
  // From the middle.
  void clickAt(const QPoint& at, Qt::KeyboardModifiers modifiers = {}) {
    click(Qt::LeftButton, view().rect().center() + at, modifiers);
    rest();
  }
  void dragTo(const QPoint& from, const QPoint& to, Qt::MouseButton button = Qt::LeftButton) {
    drag(button, view().rect().center() + from, view().rect().center() + to);
    rest();
  }
  void rest() { QTRY_VERIFY(m_recorder.isUpToDate()); }

private:
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
    bench.clickAt({round * 9, 7});
    bench.key(Qt::Key_G);
    bench.clickAt({-20, 30}, Qt::ShiftModifier);
    bench.key(Qt::Key_M, Qt::ControlModifier); // smooths what is selected
    bench.key(Qt::Key_Z);
    bench.key(Qt::Key_3);
    bench.dragTo({-40, -40}, {25 + round, 30});
    bench.key(Qt::Key_Delete, Qt::NoModifier);
    bench.key(Qt::Key_Z);
    bench.key(Qt::Key_2);
    bench.dragTo({-10, -10}, {round * 5, 20});
    bench.dragTo({0, 0}, {30, 10}, Qt::RightButton); // turns the view
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
    const Test::TestFolder folder;
    const QString file = folder.path("work.session");
    const QString mesh = folder.write("blob.off", Test::offFile(Test::blob(20)));
    {
      RecordedBench bench(file);
      workAWhile(bench, mesh, folder.path("copy.ply"));
    }
    QVERIFY(QFile::remove(folder.path("copy.ply")));
    QString error;
    const auto session = Session::fromFile(file, &error);
    QVERIFY2(session, qPrintable(error));
    QVERIFY2(session->steps.size() > 50, qPrintable(QString::number(session->steps.size())));
    QVERIFY(!session->toText({}).contains("unknown"));
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
    QVERIFY(QFile::exists(folder.path("copy.ply")));
  }
};

VELA_TEST_MAIN(WorkbenchSessionTest)
#include "session_test.moc"
