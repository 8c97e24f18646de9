// SPDX-License-Identifier: MIT
#include "session_fixture.h"

#include <support/rows.h>

using namespace Vela::UiBase;

/// Sessions that are written, read, recorded and replayed.
class SessionTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void malformedTextIsToldWithItsLine_data() {
    const Vela::Test::Rows<QString, QString> row("text", "error");
    row("nothing", "\n# only this\n", "Line 3: The file is empty.");
    row("something else", "{}", "Line 1: This is no session");
    row("something like it", "recording 1", "Line 1: This is no session");
    row("more than a format", "session 1 2", "Line 1: “2” is too much.");
    row("half a detail", "session 1\ncommand a\n  nonsense", "Line 3: “nonsense” says nothing of a step.");
    row("more than an end", "session 1\ncommand a\n  stopped a b", "Line 3: “b” is too much.");
    row("another format", "session 2", "Line 1: Sessions of the format “2”");
    row("no step", "session 1\nundo", "Line 2: A step begins with");
    row("no command", "session 1\ncommand", "Line 2: Something is missing");
    row("neither on nor off", "session 1\n\ncommand a maybe", "Line 3: “maybe” is neither");
    row("half an input", "session 1\ncommand a {\"by\":", "Line 2: “{\"by\":” is not a value in JSON.");
    row("a list", "session 1\ncommand a on [1]", "Line 2: The values do not stand in braces");
    row("half a name", "session 1\ncommand \"a", "no closing quotation mark");
    row("no button", "session 1\noperation t set elbow", "“elbow” is no button");
    row("no keys", "session 1\noperation t set left shift+", "“shift+” are no keys");
    row("no position", "session 1\noperation t set left (1, inf, 0)",
        "is not a position such as (1, 0.5, 2).");
    row("state of nothing", "session 1\n  a = 1", "There is no step before");
    row("no state", "session 1\nstart\n  a 1", "“name = value”");
    row("too much", "session 1\nstart here", "Line 2: “here” is too much.");
    row("no manager", "session 1\ncommand a in two", "“two” is no number of a manager");
    row("end of nothing", "session 1\ncommand a\n  stopped b",
        "Line 3: There is no step before that runs “b”.");
    row("two values", "session 1\nstart\n  a = 1, 2", "is not a value");
  }
  void malformedTextIsToldWithItsLine() {
    QFETCH(QString, text);
    QFETCH(QString, error);
    QString told;
    QVERIFY(!Session::fromText(text, QDir::root(), &told));
    QVERIFY2(told.contains(error), qPrintable(told));
  }

  void whatIsWrittenIsReadAgain() {
    const QString root = QDir::rootPath(); // with a drive on Windows
    const QDir folder(root + "data/scans");
    Session session;
    session.start = sessionState({{"a b", 1.5}, {"#", "“\n\""}, {"map", QVariantMap{{"in", true}}}});
    SessionStep step;
    step.command = "a \"b\"";
    step.checked = false;
    step.outcome = RunFailed;
    step.inputs = {{"files", QVariantList{QUrl::fromLocalFile(root + "data/scans/a/b.obj"),
                                          QUrl::fromLocalFile(root + "data/c.obj")}}};
    const QVariantMap like{{"$file", "no file"}};
    for (const QVariant& value : QVariantList{
             "%1 ü\n\t\"#", 0.12345678901234568, QPointF(0.1, -2), QSizeF(3, 4), QRectF(1, 2, 3, 4),
             QLineF(1, 2, 3, 4), QVector2D(1, 2), QVector3D(1, 2, 0.1F), QVector4D(1, 2, 3, 4), like,
             QQuaternion(1, 2, 3, 4), QMatrix4x4(), QByteArray("\0\xff", 2), QUrl("http://a/b%2Fc?x=%20#f"),
             std::numeric_limits<double>::infinity(), QVariantList{1, QVariantMap{{"in", QPointF()}}}})
      step.inputs.insert(QString::number(step.inputs.size()), value);
    step.changes = {{"gone", QJsonValue()}};
    session.steps.append(step);
    step.kind = SessionStep::Operation;
    step.isCompared = false;
    step.outcome = RunSucceeded;
    step.operation = {
        "(", "=", Qt::RightButton, Qt::ShiftModifier | Qt::AltModifier, {{0.1F, -2, 3e-20F}}, {{"n", 7}}};
    session.steps.append(step);
    const QString text = session.toText(folder);
    QVERIFY(text.contains("\"a/b.obj\"") && text.contains("\"" + root + "data/c.obj\""));
    QString error;
    const auto read = Session::fromText(text, folder, &error);
    QVERIFY2(read, qPrintable(error));
    QCOMPARE(read->toText(folder), text);
    QCOMPARE(read->steps[0].inputs, session.steps[0].inputs);
    QCOMPARE(read->steps[1].operation.positions, step.operation.positions);
  }

  void firstDifferenceIsExplained_data() {
    const Vela::Test::Rows<QString, QString> row("steps", "outcome");
    row("as it was", "command add {\"by\":2}\n  number = 2\ncommand twice\n  number = 4\n", "whole");
    row("a tool", "operation t set left (7, 0, 0)\n  number = 7\n", "whole");
    row("because of another", "command both\n  unknown\ncommand b on\n  unknown\ncommand b on\n",
        "step 3: b is on already.");
    row("while it is busy", "command add {\"by\":2,\"later\":1}\n  number = 20\n", "whole");
    row("grey", "command twice\n", "step 1: twice is grey: Nothing was added.");
    row("gone", "command more\n", "step 1: there is no command more.");
    row("other inputs", "command add {\"to\":2}\n", "step 1: add does not understand its inputs.");
    row("another state", "command add {\"by\":2}\n  number = 3\n", "step 1: number is 2 and not 3.");
    row("another start", "start\n  number = 1\n", "before step 1: number is 0 and not 1.");
    row("a question", "command ask\n", "step 1: ask does not end: it asks the user (“Sure?”).");
    row("a question from a thread", "command askLater\n",
        "step 1: askLater does not end: it asks the user (“Sure?”).");
    row("not gone", "command add {\"by\":2}\n  number = null\n", "step 1: number is 2 and not nothing.");
    row("gone before", "start\n  more = null\n  number = 0\n", "whole");
    row("another end", "command add {\"by\":2}\n  failed\n", "step 1: add ended otherwise: Done");
    row("no tool", "operation t dance left\n", "step 1: nobody can do “dance” of t here.");
    row("stopped later", "command more\ncommand add {\"by\":1}\n  stopped more\n  number = 1\n", "whole");
    row("stopped by the user", "command more\n  stopped\ncommand add {\"by\":1}\n  number = 1\n", "whole");
  }
  void firstDifferenceIsExplained() {
    QFETCH(QString, steps);
    QFETCH(QString, outcome);
    Counter counter;
    QTimer closer;
    connect(&closer, &QTimer::timeout, [] {
      if (QWidget* const dialog = QApplication::activeModalWidget())
        dialog->close();
    });
    closer.start(300);
    QCOMPARE(outcomeOf("session 1\n" + steps, counter, counter.controller.get()), outcome);
  }

  void nothingCrashesOnAnyText() {
    const auto seed = quint32(qEnvironmentVariableIntValue("VELA_FUZZ_SEED"));
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    const QString good =
        "session 1\nstart\n  number = 0\ncommand add {\"by\":2}\n  number = 2\ncommand twice\n"
        "  number = 4\noperation t set left shift (7, 0, 0) {\"$file\":\"a\"}\ncommand b on\n";
    const QString letters = QStringLiteral("\"{}[]()=#,:\\ \n\t1e9-+ab") + QString(QChar(0)) + QChar(0xD800);
    for (int i = 0; i < 150; ++i) {
      QString text = good;
      for (int change = random.bounded(4); change >= 0; --change) {
        const qsizetype at = random.bounded(int(text.size()));
        text.replace(at, random.bounded(3), QString(letters[random.bounded(int(letters.size()))]));
      }
      Counter counter;
      QVERIFY(outcomeOf(text, counter, counter.controller.get()) != "does not end");
    }
  }
};

VELA_TEST_MAIN(SessionTest)
#include "session_test.moc"
