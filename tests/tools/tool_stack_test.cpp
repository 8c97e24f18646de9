// SPDX-License-Identifier: MIT
#include "recording_tool.h"

#include <support/test_case.h>
#include <ui_base/tools/tool_stack.h>

#include <QMouseEvent>

using Taren::Objects::createShared;
using Vela::Test::RecordingTool;
using namespace Vela::UiBase;

namespace {

/// Writes down what the tools tell it, then follows the rules of every stack.
class RecordingStack : public ToolStack {
public:
  explicit RecordingStack(std::shared_ptr<QStringList> journal) : m_journal(std::move(journal)) {}

  std::function<void(const QString&)> onReport;

  void name(InteractiveTool* tool, const QString& name) { m_names.insert(tool, name); }

  void toolActivated(InteractiveTool* tool) override { note(tool, "activated"); }
  void toolDeactivated(InteractiveTool* tool) override { note(tool, "deactivated"); }
  void toolSuspended(InteractiveTool* tool) override { note(tool, "suspended"); }
  void toolResumed(InteractiveTool* tool) override { note(tool, "resumed"); }
  void toolCursorChange(InteractiveTool* tool) override { note(tool, "cursor"); }
  void toolBeganOperating(InteractiveTool* tool) override {
    note(tool, "began");
    ToolStack::toolBeganOperating(tool);
  }
  void toolEndedOperating(InteractiveTool* tool) override {
    note(tool, "ended");
    ToolStack::toolEndedOperating(tool);
  }

private:
  void note(InteractiveTool* tool, const char* what) {
    const QString entry = m_names.value(tool) + QLatin1Char(' ') + QLatin1String(what);
    m_journal->append(entry);
    if (onReport)
      onReport(entry);
  }

  std::shared_ptr<QStringList> m_journal;
  QHash<InteractiveTool*, QString> m_names;
};

QMouseEvent mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons,
                  const QPointF& position = {}) {
  return QMouseEvent(type, position, position, position, button, buttons, Qt::NoModifier);
}

QString stateOf(const InteractiveTool& tool) {
  if (tool.isActive())
    return QStringLiteral("active");
  if (tool.isSuspended())
    return QStringLiteral("suspended");
  return tool.isOperating() ? QStringLiteral("operating") : QStringLiteral("inactive");
}

} // namespace

class ToolStackTest : public Vela::Test::TestCase {
  Q_OBJECT

public:
  ToolStackTest() { cleanup(); }

private Q_SLOTS:
  void cleanup();

  void changeActsInOneStateOnly_data();
  void changeActsInOneStateOnly();
  void operationFollowsItsButton();
  void pressIsKeptUnchangedAndReplayedWithoutMovingTheMouse();
  void cursors();

  void pushingSuspendsAndPoppingResumes();
  void poppedToolThatCannotBeDeactivatedStaysAsItIs();
  void nothingToPushOrPopChangesNothing();
  void primaryToolIsQuietWhileAnotherOperates();
  void onlyTopToolsCountAsOperating();
  void resetReportsEveryToolThatDoesNotOperate();
  void clearingReleasesWithoutDeactivating();
  void stackMustBeShared();
  void reportsMayChangeTheStack();
  void laterObserverHearsAToolThatIsGone();

private:
  std::shared_ptr<RecordingTool> tool(const QString& name);
  QStringList reports() { return std::exchange(*m_reports, {}); }

  std::shared_ptr<QStringList> m_reports;
  std::shared_ptr<QStringList> m_input;
  std::shared_ptr<RecordingStack> m_stack;
};

// Each test starts with a stack of its own.
void ToolStackTest::cleanup() {
  m_reports = std::make_shared<QStringList>();
  m_input = std::make_shared<QStringList>();
  m_stack = createShared<RecordingStack>(m_reports);
}

std::shared_ptr<RecordingTool> ToolStackTest::tool(const QString& name) {
  auto made = std::make_shared<RecordingTool>(name, m_input);
  m_stack->name(made.get(), name);
  return made;
}

void ToolStackTest::changeActsInOneStateOnly_data() {
  QTest::addColumn<QString>("from");
  QTest::addColumn<QString>("change");
  QTest::addColumn<QString>("to");
  QTest::addColumn<QStringList>("reported");
  const QStringList states{"inactive", "active", "suspended", "operating"};
  struct Change {
    const char* name;
    const char* from;
    const char* to;
    QStringList reported;
  };
  const Change changes[] = {
      {"activate", "inactive", "active", {"t activated"}},
      {"deactivate", "active", "inactive", {"t deactivated"}},
      {"suspend", "active", "suspended", {"t suspended"}},
      {"resume", "suspended", "active", {"t resumed"}},
      {"startOperation", "active", "operating", {"t began", "t cursor"}},
      {"endOperation", "operating", "active", {"t ended"}},
  };
  for (const Change& change : changes) {
    for (const QString& from : states) {
      const bool acts = from == QLatin1String(change.from);
      QTest::addRow("%s when %s", change.name, qPrintable(from))
          << from << change.name << (acts ? QString(change.to) : from)
          << (acts ? change.reported : QStringList());
    }
  }
}

void ToolStackTest::changeActsInOneStateOnly() {
  QFETCH(QString, from);
  QFETCH(QString, change);
  const auto t = tool("t");
  t->setDelegate(m_stack, false);
  const QHash<QString, std::function<void()>> changes{{"activate", [&] { t->activate(); }},
                                                      {"deactivate", [&] { t->deactivate(); }},
                                                      {"suspend", [&] { t->suspend(); }},
                                                      {"resume", [&] { t->resume(); }},
                                                      {"startOperation", [&] { t->startOperation(); }},
                                                      {"endOperation", [&] { t->endOperation(); }}};
  if (from != "inactive")
    t->activate();
  if (from == "suspended")
    t->suspend();
  if (from == "operating")
    t->startOperation();
  QCOMPARE(stateOf(*t), from);
  reports();
  changes[change]();
  QTEST(stateOf(*t), "to");
  QTEST(reports(), "reported");
}

void ToolStackTest::operationFollowsItsButton() {
  const auto t = tool("t");
  auto press = mouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, {3, 4});
  QVERIFY(!t->mousePress(&press)); // not active
  t->activate();
  QVERIFY(t->mousePress(&press));
  QVERIFY(t->isOperating());

  auto second = mouse(QEvent::MouseButtonPress, Qt::RightButton, Qt::LeftButton | Qt::RightButton, {9, 9});
  QVERIFY(!t->mousePress(&second));
  QCOMPARE(t->pressEvent().position(), QPointF(3, 4));
  auto foreign = mouse(QEvent::MouseButtonRelease, Qt::RightButton, Qt::LeftButton);
  QVERIFY(!t->mouseRelease(&foreign));
  auto held = mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton | Qt::RightButton);
  QVERIFY(t->mouseMove(&held));
  auto lost = mouse(QEvent::MouseMove, Qt::NoButton, Qt::RightButton);
  QVERIFY(!t->mouseMove(&lost));
  QVERIFY(t->isOperating());

  auto release = mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
  QVERIFY(t->mouseRelease(&release));
  QVERIFY(t->isActive());
  QVERIFY(t->pressEvent().isNull());
  QVERIFY(!t->mouseMove(&held) && !t->mouseRelease(&release));
}

void ToolStackTest::pressIsKeptUnchangedAndReplayedWithoutMovingTheMouse() {
  const QPointF there(30, 40);
  QMouseEvent original(QEvent::MouseButtonPress, there, there + QPointF(5, 5), there + QPointF(100, 100),
                       Qt::RightButton, Qt::RightButton | Qt::LeftButton, Qt::ShiftModifier);
  const MousePress kept(original);
  auto later = mouse(QEvent::MouseMove, Qt::NoButton, Qt::RightButton, {77, 88});
  const QMouseEvent replayed = kept.toEvent();
  QCOMPARE(replayed.type(), QEvent::MouseButtonPress);
  QCOMPARE(replayed.position(), there);
  QCOMPARE(replayed.scenePosition(), there + QPointF(5, 5));
  QCOMPARE(replayed.globalPosition(), there + QPointF(100, 100));
  QCOMPARE(replayed.button(), Qt::RightButton);
  QCOMPARE(replayed.buttons(), Qt::RightButton | Qt::LeftButton);
  QCOMPARE(replayed.modifiers(), Qt::ShiftModifier);
  QVERIFY(replayed.pointingDevice() != later.pointingDevice());
  QCOMPARE(later.position(), QPointF(77, 88));
}

void ToolStackTest::cursors() {
  const auto t = tool("t");
  t->setDelegate(m_stack, false);
  QCOMPARE(t->getIdleCursor().shape(), Qt::ArrowCursor);
  t->activate();
  reports();
  t->setOperatingCursor(Qt::CrossCursor);
  QCOMPARE(t->getIdleCursor().shape(), Qt::CrossCursor);
  t->setIdleCursor(Qt::OpenHandCursor);
  QCOMPARE(reports(), QStringList());
  t->startOperation();
  reports();
  t->setOperatingCursor(Qt::ClosedHandCursor);
  QCOMPARE(reports(), QStringList("t cursor"));
  QCOMPARE(t->getIdleCursor().shape(), Qt::OpenHandCursor);
  QCOMPARE(t->loadCursorFromPath(":/no/such/image", {1, 1}).shape(), QCursor().shape());
}

void ToolStackTest::pushingSuspendsAndPoppingResumes() {
  const auto a = tool("a");
  const auto b = tool("b");
  m_stack->pushTool(LeftButton, a);
  m_stack->pushTool(LeftButton, b);
  QCOMPARE(reports(), QStringList({"a activated", "a suspended", "b activated"}));
  QCOMPARE(m_stack->getTool(LeftButton), b);
  QCOMPARE(m_stack->popTool(LeftButton), b);
  QCOMPARE(reports(), QStringList({"b deactivated", "a resumed"}));
  QVERIFY(!b->getDelegate() && a->getDelegate());
  QCOMPARE(m_stack->getTool(LeftButton), a);
}

void ToolStackTest::poppedToolThatCannotBeDeactivatedStaysAsItIs() {
  const auto below = tool("below");
  const auto t = tool("t");
  m_stack->pushTool(RightButton, below);
  m_stack->pushTool(RightButton, t);
  t->startOperation();
  reports();
  m_stack->popTool(RightButton);
  QCOMPARE(reports(), QStringList("below resumed"));
  QVERIFY(t->isOperating());
}

void ToolStackTest::nothingToPushOrPopChangesNothing() {
  const auto a = tool("a");
  m_stack->pushTool(LeftButton, a);
  reports();
  m_stack->pushTool(LeftButton, nullptr);
  QVERIFY(!m_stack->popTool(MiddleButton));
  QVERIFY(!m_stack->getTool(MiddleButton) && !m_stack->getOperatingTool());
  m_stack->popTool(LeftButton);
  QVERIFY(!m_stack->popTool(LeftButton));
  QCOMPARE(reports(), QStringList("a deactivated"));
}

void ToolStackTest::primaryToolIsQuietWhileAnotherOperates() {
  const auto left = tool("left");
  const auto right = tool("right");
  const auto middle = tool("middle");
  m_stack->pushTool(LeftButton, left);
  m_stack->pushTool(RightButton, right);
  m_stack->pushTool(MiddleButton, middle);
  reports();
  right->startOperation();
  QCOMPARE(reports(), QStringList({"right began", "left suspended", "right cursor"}));
  middle->startOperation(); // its suspension of the left one is a repetition
  right->endOperation();
  QCOMPARE(stateOf(*left), QStringLiteral("active"));
  middle->endOperation();
  reports();
  left->startOperation();
  left->endOperation();
  QCOMPARE(reports(), QStringList({"left began", "left cursor", "left ended"}));
}

void ToolStackTest::onlyTopToolsCountAsOperating() {
  const auto below = tool("below");
  const auto left = tool("left");
  const auto right = tool("right");
  m_stack->pushTool(RightButton, right);
  m_stack->pushTool(LeftButton, below);
  below->startOperation();
  m_stack->pushTool(LeftButton, left);
  QVERIFY(below->isOperating());
  QVERIFY(!m_stack->getOperatingTool());
  right->startOperation();
  QCOMPARE(m_stack->getOperatingTool(), right);
}

void ToolStackTest::resetReportsEveryToolThatDoesNotOperate() {
  const auto below = tool("below");
  const auto top = tool("top");
  const auto right = tool("right");
  m_stack->pushTool(RightButton, right);
  m_stack->pushTool(LeftButton, below);
  m_stack->pushTool(LeftButton, top);
  reports();
  m_stack->resetTools();
  QCOMPARE(reports(),
           QStringList({"top deactivated", "top activated", "below resumed", "below deactivated",
                        "below activated", "below suspended", "right deactivated", "right activated"}));
  right->startOperation();
  reports();
  m_stack->resetTools();
  QVERIFY(reports().filter("right").isEmpty());
  QVERIFY(right->isOperating() && top->isSuspended());
}

void ToolStackTest::clearingReleasesWithoutDeactivating() {
  const auto kept = tool("kept");
  auto released = tool("released");
  const std::weak_ptr<RecordingTool> watched = released;
  m_stack->pushTool(LeftButton, kept);
  m_stack->pushTool(RightButton, std::exchange(released, nullptr));
  reports();
  m_stack->clearTools();
  QCOMPARE(reports(), QStringList());
  QVERIFY(watched.expired());
  QVERIFY(kept->isActive() && kept->getDelegate());

  m_stack->pushTool(RightButton, tool("last"));
  m_stack = nullptr;
  kept->deactivate(); // nobody is left to hear of it
  QVERIFY(!kept->getDelegate());
}

void ToolStackTest::stackMustBeShared() {
  RecordingStack onStack(m_reports);
  const auto below = tool("below");
  QVERIFY_THROWS_EXCEPTION(std::bad_weak_ptr, onStack.pushTool(LeftButton, below));
  QVERIFY(!onStack.getTool(LeftButton) && !below->isActive());
}

void ToolStackTest::reportsMayChangeTheStack() {
  const auto first = tool("first");
  const auto second = tool("second");
  const auto third = tool("third");
  m_stack->pushTool(LeftButton, first);
  m_stack->pushTool(LeftButton, second);
  m_stack->onReport = [&](const QString& report) {
    if (report == "second deactivated")
      m_stack->pushTool(LeftButton, third);
    if (report == "third activated")
      m_stack->clearTools();
  };
  QCOMPARE(m_stack->popTool(LeftButton), second);
  QVERIFY(!m_stack->getTool(LeftButton));

  // The last owner goes while the tool reports.
  m_stack->onReport = [&](const QString& report) {
    if (report.endsWith("began"))
      m_stack->clearTools();
  };
  auto fleeting = tool("fleeting");
  m_stack->pushTool(LeftButton, fleeting);
  RecordingTool* const plain = fleeting.get();
  const std::weak_ptr<RecordingTool> watched = std::exchange(fleeting, nullptr);
  plain->startOperation();
  QVERIFY(watched.expired());
}

void ToolStackTest::laterObserverHearsAToolThatIsGone() {
  const auto observer = createShared<RecordingStack>(m_reports);
  auto t = tool("t");
  observer->name(t.get(), "t");
  t->addObserver(observer, true);
  t->activate();
  t = nullptr;
  QTRY_COMPARE(*m_reports, QStringList("t activated"));
}

VELA_TEST_MAIN(ToolStackTest)
#include "tool_stack_test.moc"
