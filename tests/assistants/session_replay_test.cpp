// SPDX-License-Identifier: MIT
#include "session_fixture.h"

using namespace Vela::UiBase;

/// Sessions that are recorded and replayed.
class SessionReplayTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void whatIsRecordedIsReplayed() {
    const QTemporaryDir folder;
    const QString file = folder.filePath("counter.session");
    QStringList warnings;
    {
      Counter counter;
      SessionRecorder recorder(counter);
      recorder.addManager(counter.controller.get());
      connect(&recorder, &SessionRecorder::warned, [&](const QString& sentence) { warnings += sentence; });
      QVERIFY(!recorder.start(folder.filePath("none/x")) && !recorder.error().isEmpty());
      QVERIFY(recorder.start(file));
      const auto rest = [&recorder] { QTRY_VERIFY(recorder.isUpToDate()); };
      rest();
      counter.command("both")->trigger(); // what it sets off is no step
      rest();
      counter.command("b")->trigger(); // nor is what gives way
      OperationLog::Instance().tell({"t", "set", Qt::LeftButton, {}, {{5, 0, 0}}, {}});
      counter.number = 5;
      rest();
      counter.view.addAction(counter.add);
      counter.add->setShortcut(Qt::Key_F5);
      Vela::Test::showActive(counter.view);
      counter.command("twice")->trigger();
      counter.command("a")->trigger();                          // by the program: follows from it
      QTest::keyClick(counter.view.windowHandle(), Qt::Key_F5); // by the user, and without inputs
      rest();
      counter.stops = true;
      counter.command("twice")->trigger();
      OperationLog::Instance().tell({"t", "set", Qt::LeftButton, {}, {{10, 0, 0}}, {}}); // before it ends
      rest();
    }
    QCOMPARE(warnings.size(), 2);
    QFile written(file);
    QVERIFY(written.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(written.readAll());
    QCOMPARE(text.count("\ncommand "), 5);
    QCOMPARE(text.count("\n# "), 2);
    QVERIFY(text.contains("  stopped twice\n"));
    Counter again;
    QCOMPARE(outcomeOf(text, again, again.controller.get()), QString("whole"));
    QCOMPARE(again.number, 10);
  }

  void eachRecordingBeginsAnew() {
    const QTemporaryDir folder;
    Counter counter;
    SessionRecorder recorder(counter);
    recorder.addManager(counter.controller.get());
    for (const int number : {0, 1}) {
      QFile file(folder.filePath(QString::number(number)));
      QVERIFY(recorder.start(file.fileName()) && recorder.error().isEmpty() && !recorder.isUpToDate());
      counter.add->setInputs({{"by", 1}});
      counter.add->trigger();
      recorder.stop(); // before it rests
      QVERIFY(!recorder.isRecording() && file.open(QIODevice::ReadOnly));
      QCOMPARE(QString(file.readAll()),
               QString("session 1\nstart\n  number = %1\ncommand add {\"by\":1}\n  unknown\n").arg(number));
    }
    QSignalSpy failed(&recorder, &SessionRecorder::failed);
    QVERIFY(!recorder.start("/dev/full") && !recorder.isRecording() && !recorder.error().isEmpty());
    QTRY_COMPARE(failed.size(), int(QFile::exists("/dev/full")));
  }

  void whatTwoWindowsDoIsDoneInEach() {
    const QTemporaryDir folder;
    const QString file = folder.filePath("two.session");
    QStringList warnings;
    for (const bool replays : {false, true}) {
      Counter first;
      Counter second;
      SessionRecorder recorder(first);
      SessionReplay replay(first);
      for (const Counter* const counter : {&first, &second}) {
        recorder.addManager(counter->controller.get());
        replay.addManager(counter->controller.get());
      }
      QString error;
      if (replays) {
        replay.start(Session::fromFile(file, &error).value());
        QTRY_VERIFY(!replay.isReplaying());
      } else {
        connect(&recorder, &SessionRecorder::warned, [&](const QString& sentence) { warnings += sentence; });
        QVERIFY(recorder.start(file) && !recorder.start(file) && !recorder.error().isEmpty());
        second.add->setInputs({{"by", 3}, {"shape", QPolygonF()}});
        second.add->trigger();
        QTRY_VERIFY(recorder.isUpToDate());
        OperationLog::Instance().tell({"t", "set", Qt::LeftButton, {}, {}, {{"shape", QPolygonF()}}});
      }
      QCOMPARE(first.number, 0);
      QCOMPARE(second.number, 3);
    }
    QCOMPARE(warnings.filter("shape").size(), 2);
    QCOMPARE(warnings.size(), 2);
  }

  void anotherReplayMayBeginAtAnyTime() {
    QString error;
    const auto session = Session::fromText("session 1\ncommand add {\"to\":1}\n", {}, &error);
    const auto other = Session::fromText("session 1\ncommand add {\"by\":1}\n", {}, &error);
    for (const bool starts : {false, true}) {
      Counter counter;
      SessionReplay replay(counter);
      replay.addManager(counter.controller.get());
      QSignalSpy finished(&replay, &SessionReplay::finished);
      counter.add->meanwhile = [&] { starts ? replay.start(*other) : replay.stop(); };
      replay.start(starts ? *session : *other);
      QTRY_VERIFY(!replay.isReplaying());
      QCOMPARE(counter.number, starts ? 1 : 0);
      QCOMPARE(finished.size(), starts ? 1 : 0);
      QVERIFY(!starts || finished[0][0].toBool());
    }
  }

  void anythingMayDieMeanwhile() {
    QString error;
    const auto session = Session::fromText("session 1\ncommand add {\"by\":1}\ncommand twice\n", {}, &error);
    for (const int step : {1, 2}) {
      auto counter = std::make_unique<Counter>();
      auto* const replay = new SessionReplay(*counter);
      replay->addManager(counter->controller.get());
      connect(replay, &SessionReplay::stepBegan, [&](int began) {
        if (began == step)
          delete replay;
      });
      replay->start(*session);
      QTRY_COMPARE(counter->number, step - 1);
      Vela::Test::settle();
      SessionReplay orphan(*counter);
      QSignalSpy finished(&orphan, &SessionReplay::finished);
      orphan.addManager(counter->controller.get());
      orphan.start(*session);
      counter->controller->removeAllCommands();
      QVERIFY(finished.wait());
      QVERIFY(finished[0][1].toString().contains("there is no command add"));
    }
  }
};

VELA_TEST_MAIN(SessionReplayTest)
#include "session_replay_test.moc"
