// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/assistants/audit.h>
#include <ui_base/commands/command_group.h>
#include <ui_base/commands/run_log.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/views/base_view.h>

#include <commands/commands_fixture.h>

using namespace Vela::UiBase;
using Finding = AuditFinding;

namespace {

/// A window of all kinds of things, none of them with a fault.
class Stage {
public:
  Stage() {
    auto* const layout = new QVBoxLayout(&window);
    layout->addWidget(button = new QPushButton(QStringLiteral("Apply"), &window));
    layout->addWidget(pages = new QStackedWidget(&window));
    pages->addWidget(view = new BaseView);
    pages->addWidget(page = new QWidget);
    auto* const onPage = new QVBoxLayout(page);
    onPage->addWidget(label = new QLabel(QStringLiteral("Hidden at first"), page));
    controller = Taren::Objects::createShared<CmdsViewController>(view);
    menu = new QMenu(QStringLiteral("Tools"), &window);
    bar = new ToolBar(view, Qt::TopToolBarArea);
    open = add("open", "Open");
    close = add("close", "Close");
    bar->AddAction(close);
    auto* const menuBar = new QMenuBar(&window);
    menuBar->addMenu(menu);
    layout->setMenuBar(menuBar);
    window.resize(500, 400);
    window.show();
    RunLog::Instance().clear();
  }
  ~Stage() {
    controller->removeAllCommands();
    dispatcher.runAll();
  }

  TestCommand* add(const char* id, const char* text) {
    auto* const command = new TestCommand(QString::fromLatin1(id), controller.get());
    command->setText(QString::fromUtf8(text));
    QPixmap dot(16, 16);
    dot.fill(Qt::red);
    command->setIcon(QIcon(dot));
    controller->addCommand(command);
    menu->addAction(command);
    return command;
  }
  QList<Finding> audit(const AuditOptions& options = {}) {
    dispatcher.runAll();
    Vela::Test::settle();
    return Vela::UiBase::audit(*controller, window, options);
  }

  Taren::Core::SteppedDispatcher dispatcher;
  Taren::Core::ScopedDispatcher installed{dispatcher};
  QWidget window;
  QPushButton* button;
  QStackedWidget* pages;
  BaseView* view;
  QWidget* page;
  QLabel* label;
  QMenu* menu;
  ToolBar* bar;
  std::shared_ptr<CmdsViewController> controller;
  TestCommand* open;
  TestCommand* close;
};

using Seed = std::function<void(Stage&)>;

void paint(QWidget& widget, QColor color) {
  QPalette palette = widget.palette();
  palette.setColor(QPalette::WindowText, color);
  widget.setPalette(palette);
}

} // namespace

class AuditTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void eachFaultIsFoundAndNothingElse_data() {
    QTest::addColumn<Seed>("seed");
    QTest::addColumn<int>("kind"); // -1: a clean twin
    QTest::addColumn<QString>("where");
    const auto row = [](const char* name, int kind, const char* where, const Seed& seed) {
      QTest::newRow(name) << seed << kind << QString::fromLatin1(where);
    };
    row("nothing", -1, "", [](Stage&) {});
    row("command without a text", Finding::NoText, "open", [](Stage& stage) {
      stage.open->setText({});
      stage.menu->removeAction(stage.open);
      stage.bar->AddAction(stage.open)->setAccessibleName(QStringLiteral("Open"));
    });
    row("button without a name", Finding::NoAccessibleName, "QPushButton",
        [](Stage& stage) { stage.button->setText({}); });
    row("one key for two", Finding::ShortcutsMeet, "open, close", [](Stage& stage) {
      stage.open->setShortcut(QKeySequence::Open);
      stage.close->setShortcut(QKeySequence::Open);
    });
    row("key of the library", Finding::ShortcutsMeet, "F6",
        [](Stage& stage) { stage.open->setShortcut(Qt::Key_F6); });
    row("command nowhere", Finding::NoKeyboard, "open",
        [](Stage& stage) { stage.menu->removeAction(stage.open); });
    row("button that keys do not reach", Finding::NoKeyboard, "QPushButton",
        [](Stage& stage) { stage.button->setFocusPolicy(Qt::NoFocus); });
    row("button with a key", -1, "", [](Stage& stage) {
      stage.button->setFocusPolicy(Qt::NoFocus);
      stage.button->setShortcut(Qt::Key_F7);
    });
    row("pale entry that cannot be used", -1, "", [](Stage& stage) {
      stage.controller->setGroundState(stage.open->id, {State::Off, State::Keep});
    });
    row("blank in a bar", Finding::NoIcon, "Close", [](Stage& stage) { stage.close->setIcon({}); });
    row("identifier twice", Finding::SameIdentifier, "open", [](Stage& stage) {
      auto* const group = new CommandGroup({}, QStringLiteral("Group"), QStringLiteral("Group"));
      group->addCommand(stage.open, 0);
      stage.controller->addCommand(group);
      stage.add("open", "Open more");
    });
    row("cut off", Finding::TextCutOff, "Apply", [](Stage& stage) { stage.button->setFixedWidth(14); });
    row("cut off on a hidden page", Finding::TextCutOff, "Hidden at first",
        [](Stage& stage) { stage.label->setFixedWidth(20); });
    row("a little too pale", Finding::LowContrast, "Hidden at first",
        [](Stage& stage) { paint(*stage.label, QColor(0x74, 0x74, 0x74)); });
    row("nameless in an open panel", Finding::NoAccessibleName, "FlyoutBase", [](Stage& stage) {
      auto* const panel = new FlyoutBase(QStringLiteral("Now"), new QPushButton, {}, &stage.window);
      panel->setWindowFlag(Qt::Tool);
      panel->show();
    });
    row("pale but disabled", -1, "", [](Stage& stage) {
      paint(*stage.label, QColor(0xbb, 0xbb, 0xbb));
      stage.label->setEnabled(false);
    });
    row("slow", Finding::SlowCommand, "%1%2: ", [](Stage& stage) {
      stage.open->id = QStringLiteral("%1%2");
      RunLog::Instance().setMainThreadLimit(std::chrono::nanoseconds(1));
      stage.open->trigger();
      RunLog::Instance().setMainThreadLimit(RunLog::defaultMainThreadLimit);
    });
  }
  void eachFaultIsFoundAndNothingElse() {
    QFETCH(Seed, seed);
    QFETCH(int, kind);
    QFETCH(QString, where);
    Stage stage;
    seed(stage);
    const auto findings = stage.audit();
    QVERIFY2(findings.size() == (kind < 0 ? 0 : 1), qPrintable(auditReport(findings)));
    if (kind < 0)
      return;
    QCOMPARE(int(findings[0].kind), kind);
    QVERIFY2(findings[0].where.contains(where), qPrintable(findings[0].where));
    AuditOptions options;
    options.waivers = {{Finding::EKind(kind), where, QString()}};
    QCOMPARE(stage.audit(options).size(), 1);
    options.waivers[0].reason = QStringLiteral("It is meant so.");
    QCOMPARE(stage.audit(options).size(), 0);
  }
};

VELA_TEST_MAIN(AuditTest)
#include "audit_test.moc"
