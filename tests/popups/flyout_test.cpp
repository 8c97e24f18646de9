// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/test_case.h>
#include <ui_base/commands/flyout_command.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>
#include <vlk_common_res/strings.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSemaphore>
#include <QSignalSpy>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QWindow>

#include <atomic>

using namespace Vela::UiBase;

namespace {

class ValuesPanel : public QWidget {
  Q_OBJECT

public:
  ValuesPanel() {
    auto* const column = new QVBoxLayout(this);
    column->addWidget(spin = new QSpinBox);
    column->addWidget(edit = new QLineEdit);
  }
  QSpinBox* spin;
  QLineEdit* edit;

Q_SIGNALS:
  void ResetValues();
};

class PanelCommand : public FlyoutCommand {
  Q_OBJECT
  COMMAND_ID(PanelCommand)

public:
  PanelCommand(QWidget* panel, CmdsViewController* controller) : FlyoutCommand(panel, controller) {}

  std::atomic<int> runs = 0;
  bool held = false; // the work waits for mayFinish
  QSemaphore mayFinish;
  bool mayRun = true;
  QStringList hooks;

  bool onExecuteAsync(bool) override {
    if (held)
      mayFinish.acquire();
    return ++runs;
  }
  void onReset() override { hooks += "reset"; }
  void onESCKeyReleased() override { hooks += "escape"; }

protected:
  bool onBeforeExecute() override { return mayRun; }
  CommandContext getBeginCommandContext() override {
    CommandContext context;
    context.overwrite("other", {State::Off, State::Keep});
    return context;
  }
};

class OtherCommand : public CommandBase {
public:
  OtherCommand() : CommandBase(nullptr) {}
  QString commandId() const override { return QStringLiteral("other"); }
  bool onExecuteAsync(bool) override { return true; }
};

/// A window with a view that has a flyout beside a field of the window.
struct Stage {
  explicit Stage(bool checkable = false, QWidget* simple = nullptr) {
    auto* const column = new QVBoxLayout(&window);
    column->addWidget(new QLineEdit); // where Qt itself would leave the focus
    column->addWidget(field = new QLineEdit);
    column->addWidget(view = new BaseView, 1);
    controller = new CmdsViewController(view);
    if (!simple) {
      panel = new ValuesPanel;
      flyout = new FlyoutBase("Smoothing", panel, nullptr, true, true, true, true, &window);
      flyout->resize(flyout->sizeHint());
      flyout->hide();
    }
    command = new PanelCommand(simple ? simple : flyout.data(), controller);
    command->setCheckable(checkable);
    controller->addCommand(command);
    controller->addCommand(other = new OtherCommand);
    window.resize(500, 400);
    Vela::Test::showActive(window);
    field->setFocus();
  }
  void key(Qt::Key key) { QTest::keyClick(window.windowHandle(), key); }
  QAbstractButton* button(const QString& text) const {
    const auto buttons = flyout->findChildren<QAbstractButton*>();
    for (QAbstractButton* const each : buttons) {
      if (each->text() == text || each->accessibleName() == text)
        return each;
    }
    return nullptr;
  }

  QWidget window;
  QLineEdit* field;
  BaseView* view;
  CmdsViewController* controller;
  ValuesPanel* panel = nullptr;
  QPointer<FlyoutBase> flyout;
  PanelCommand* command;
  OtherCommand* other;
};

} // namespace

class FlyoutTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void simpleFlyoutIsOnlyShown() {
    QLabel label("simple");
    Stage stage(true, &label);
    QVERIFY(stage.command->isSimpleFlyout() && !stage.command->flyout());
    QVERIFY(stage.command->hasTag(Vela::Resource::String::TAG_FLYOUT()));
    stage.command->trigger();
    QVERIFY(label.isVisible());
    QVERIFY(stage.controller->contextStack().isEmpty());
    stage.command->onExitCommand();
    QVERIFY(!label.isVisible() && !stage.command->isChecked());
    Vela::Test::settle();
    QVERIFY(stage.other->isEnabled());
  }

  void applyingRunsTheWorkAndMakesTheFlyoutBusy() {
    Stage stage;
    QSignalSpy busy(stage.flyout, &FlyoutBase::FlyoutBusy);
    QSignalSpy idle(stage.flyout, &FlyoutBase::FlyoutIdle);
    stage.command->trigger();
    stage.command->held = true;
    Vela::Test::click(*stage.button("Apply"));
    QVERIFY(stage.flyout->IsBusy() && !stage.panel->isEnabled());
    stage.flyout->Apply(); // one at a time
    stage.command->mayFinish.release();
    QTRY_VERIFY(!stage.flyout->IsBusy());
    stage.command->mayRun = false;
    Vela::Test::click(*stage.button("Apply"));
    QVERIFY(!stage.flyout->IsBusy());
    QCOMPARE(stage.command->runs.load(), 1);
    QCOMPARE(busy.count() + idle.count(), 2);
    QVERIFY(stage.flyout->isVisible());
  }

  void keyboardAloneWorksTheFlyout() {
    Stage stage;
    stage.command->trigger();
    QVERIFY(stage.panel->spin->hasFocus());
    stage.key(Qt::Key_5);
    stage.key(Qt::Key_Tab);
    QVERIFY(stage.panel->edit->hasFocus());
    stage.key(Qt::Key_Return);
    QTRY_COMPARE(stage.command->runs.load(), 1);
    QCOMPARE(stage.panel->spin->value(), 5);
    QTRY_VERIFY(!stage.flyout->IsBusy());
    stage.button("Reset")->setFocus();
    stage.key(Qt::Key_Return); // presses the button, and does not apply
    QCOMPARE(stage.command->hooks, QStringList("reset"));
    stage.key(Qt::Key_Escape);
    QCOMPARE(stage.command->hooks, QStringList({"reset", "escape"}));
    QVERIFY(!stage.flyout->isVisible() && stage.field->hasFocus());
  }

  void escapeOfAListIsNotTheFlyouts() {
    Stage stage;
    auto* const list = new QComboBox;
    list->addItems({"a", "b"});
    stage.panel->layout()->addWidget(list);
    stage.command->trigger();
    list->showPopup();
    QTest::keyPress(list->view()->window()->windowHandle(), Qt::Key_Escape);
    QTest::keyRelease(stage.window.windowHandle(), Qt::Key_Escape);
    QVERIFY(stage.flyout->isVisible());
  }

  void busyFlyoutKeepsTheFocus() {
    Stage stage;
    stage.command->trigger();
    stage.panel->edit->setFocus();
    stage.flyout->SetBusy(true);
    QVERIFY(stage.flyout->hasFocus());
    stage.key(Qt::Key_Escape);
    QVERIFY(stage.flyout->isVisible());
    stage.flyout->SetBusy(false);
    QVERIFY(stage.panel->edit->hasFocus());
  }

  void focusComesBackFromAHost() {
    Stage stage;
    ArrowedWindow host(&stage.window);
    host.AttachWidget(stage.flyout);
    const std::function<void()> ways[] = {[&] { stage.flyout->hide(); }, [&] { stage.flyout->CloseMe(); },
                                          [&] { host.hide(); }};
    for (const auto& hide : ways) {
      stage.field->setFocus();
      host.show();
      QVERIFY(stage.panel->spin->hasFocus());
      hide();
      QVERIFY(host.isHidden() && stage.field->hasFocus());
    }
    delete host.DetachWidget();
  }

  void subWidgetsStandBesideAndFollow() {
    Stage stage;
    QSignalSpy changed(stage.flyout, &FlyoutBase::SubWidgetVisibilityChanged);
    auto* const preview = new QLabel("preview");
    stage.flyout->AddSubWidget(preview, Right);
    stage.flyout->ShowSubWidget(preview, true);
    QVERIFY(!preview->isVisible());
    stage.command->trigger();
    QVERIFY(preview->isVisible());
    stage.flyout->move(30, 40);
    QCOMPARE(preview->y(), 40);
    QVERIFY(preview->x() > stage.flyout->geometry().right());
    stage.flyout->CloseMe();
    QVERIFY(!preview->isVisible());
    stage.command->trigger();
    QVERIFY(preview->isVisible() && stage.flyout->IsSubWidgetVisible());
    stage.flyout->ShowSubWidget(preview, false);
    stage.flyout->ShowSubWidget(preview, false);
    QVERIFY(!preview->isVisible());
    QCOMPARE(changed.count(), 2);
  }
};

VELA_TEST_MAIN(FlyoutTest)
#include "flyout_test.moc"
