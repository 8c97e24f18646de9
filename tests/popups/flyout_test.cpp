// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/screen_record.h>
#include <ui_base/commands/flyout_command.h>
#include <ui_base/core/focus_keeper.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>

#include <atomic>

using namespace Vela::UiBase;
using Vela::Test::pressKey;

namespace {

class PanelCommand : public FlyoutCommand {
  Q_OBJECT
  COMMAND_ID(PanelCommand)

public:
  PanelCommand(QWidget* panel, CmdsViewController* controller) : FlyoutCommand(panel, controller) {}
  PanelCommand(std::function<FlyoutBase*()> make, CmdsViewController* controller)
      : FlyoutCommand(std::move(make), controller) {}

  std::atomic<int> runs = 0;
  QSemaphore mayFinish{1000};
  bool mayRun = true;
  QStringList hooks;

  bool onExecuteAsync(bool) override {
    mayFinish.acquire();
    return ++runs;
  }
  void onReset() override { hooks += "reset"; }
  void onESCKeyReleased() override { hooks += "escape"; }

protected:
  bool onBeforeExecute() override { return mayRun; }
};

/// A window with a view that has a flyout beside a field of the window.
struct Stage {
  Stage() {
    auto* const column = new QVBoxLayout(&window);
    column->addWidget(new QLineEdit); // where Qt itself would leave the focus
    column->addWidget(field = new QLineEdit);
    column->addWidget(view = new BaseView, 1);
    controller = new CmdsViewController(view);
    auto* const rows = new QVBoxLayout(panel = new QWidget);
    rows->addWidget(spin = new QSpinBox);
    rows->addWidget(edit = new QLineEdit);
    flyout = new FlyoutBase("Smoothing", panel, nullptr, true, true, true, true, &window);
    flyout->resize(flyout->sizeHint());
    flyout->hide();
    command = new PanelCommand(flyout, controller);
    controller->addCommand(command);
    window.resize(500, 400);
    Vela::Test::showActive(window);
    field->setFocus();
  }
  QPushButton* button(const QString& text) const {
    const auto buttons = flyout->findChildren<QPushButton*>();
    const auto says = [&](const QPushButton* button) { return button->text() == text; };
    return *std::find_if(buttons.begin(), buttons.end(), says);
  }

  QWidget window;
  QLineEdit* field;
  BaseView* view;
  CmdsViewController* controller;
  QWidget* panel;
  QSpinBox* spin;
  QLineEdit* edit;
  QPointer<FlyoutBase> flyout;
  PanelCommand* command;
};

} // namespace

class FlyoutTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void focusIsNotGivenToWhatIsDying() {
    QWidget window;
    QLineEdit taker(&window);
    auto* const before = new QLineEdit(&window);
    Vela::Test::showActive(window);
    before->setFocus();
    FocusKeeper keeper;
    keeper.keep();
    taker.setFocus();
    QVERIFY(keeper.giveBackFrom(taker) && before->hasFocus());
    keeper.keep();
    taker.setFocus();
    connect(before, &QObject::destroyed, &taker, [&] { QVERIFY(!keeper.giveBackFrom(taker)); });
    delete before;
    QCOMPARE(window.focusWidget(), &taker);
  }

  void isMadeWhenItIsFirstAskedFor() {
    const Stage stage;
    int made = 0;
    const auto make = [&made, parent = stage.panel] {
      ++made;
      return new FlyoutBase("Later", nullptr, AllPanelButtons, parent->window());
    };
    auto* const command = new PanelCommand(make, stage.controller);
    command->setEnabled(false);
    delete new PanelCommand(make, stage.controller);
    stage.controller->addCommand(command);
    command->mayFinish.acquire(1000);
    command->onExecute();
    QCOMPARE(made, 0);
    QVERIFY(!command->flyout()->isEnabled() && command->flyout()->IsBusy());
    command->mayFinish.release();
    QTRY_VERIFY(!command->flyout()->IsBusy());
    command->setEnabled(true);
    command->flyout()->resize(200, 150);
    command->trigger();
    QVERIFY(command->flyout()->isVisible() && !command->flyout()->styleSheet().isEmpty());
    QCOMPARE(made, 1);
  }

  void hiddenAsItIsShownItLeavesNoWindow() {
    FlyoutBase flyout("Smooth", new QSpinBox, AllPanelButtons);
    connect(&flyout, &FlyoutBase::FlyoutResized, &flyout, &QWidget::hide);
    flyout.show();
    QVERIFY(flyout.isHidden() && !flyout.windowHandle()->isVisible());
  }

  void sideWidgetsAndAStripeAreShown() {
    FlyoutBase flyout("Smooth", new QSpinBox, AllPanelButtons);
    const QSignalSpy sides(&flyout, &FlyoutBase::SubWidgetVisibilityChanged);
    flyout.move(100, 110);
    flyout.show();
    for (const EDirection side : {Right, Bottom, Left, Top}) {
      flyout.move(flyout.pos() + QPoint(5, 0));
      auto* const beside = new QWidget;
      (new QVBoxLayout(beside))->setContentsMargins(15, 10, 15 + side, 10 + side);
      flyout.AddSubWidget(beside, side);
      flyout.ShowSubWidget(beside, true);
      flyout.ShowSubWidget(beside, true);
    }
    flyout.ShowPartialBackground({0, 40, 10, 20}, Qt::yellow);
    flyout.SetApplyText("Go");
    Vela::Test::showActive(flyout);
    VELA_COMPARE_SCREEN("flyout_window");
    QCOMPARE(sides, QList<QVariantList>(4, {true}));
    const auto stripe = [&flyout] {
      Vela::Test::settle();
      return flyout.screen()->grabWindow(flyout.winId()).toImage().pixelColor(4, 50) == Qt::yellow;
    };
    QVERIFY(stripe());
    flyout.HidePartialBackground();
    QVERIFY(!stripe());
    auto* const last = new QLabel("last");
    const std::function<void()> changes[] = {[&] { flyout.EnableApplyButton(false); },
                                             [&] { flyout.EnableResetButton(false); },
                                             [&] { flyout.SetBusy(true); },
                                             [&] { flyout.SetBusy(false); },
                                             [&] { flyout.AddSubWidget(nullptr, Left); },
                                             [&] { flyout.AddSubWidget(last, Left); },
                                             [&] { flyout.ShowSubWidget(last, true); },
                                             [&] { flyout.move(40, 200); },
                                             [&] { flyout.resize(300, 190); },
                                             [&] {
                                               flyout.SetSizeLimit({170, 110});
                                             },
                                             [&] { flyout.ShowSubWidget(last, false); },
                                             [&] { flyout.hide(); },
                                             [&] { flyout.show(); },
                                             [&] { delete last; }};
    for (const auto& change : changes) {
      change();
      Vela::Test::settle();
    }
  }

  void plainPanelIsOnlyShown() {
    Stage stage;
    QWidget plain;
    PanelCommand command(&plain, stage.controller);
    command.setCheckable(true);
    command.trigger();
    QVERIFY(plain.isVisible() && stage.controller->contextStack().isEmpty());
    command.onExitCommand();
    QVERIFY(!plain.isVisible() && !command.isChecked());
  }

  void applyingRunsTheWorkAndMakesTheFlyoutBusy() {
    Stage stage;
    QSignalSpy busy(stage.flyout, &FlyoutBase::FlyoutBusy);
    QSignalSpy idle(stage.flyout, &FlyoutBase::FlyoutIdle);
    stage.command->trigger();
    stage.command->mayFinish.acquire(1000);
    Vela::Test::click(*stage.button("Apply"));
    QVERIFY(stage.flyout->IsBusy());
    stage.flyout->Apply(); // one at a time
    stage.command->mayFinish.release();
    QTRY_VERIFY(!stage.flyout->IsBusy());
    stage.command->mayRun = false;
    Vela::Test::click(*stage.button("Apply"));
    QVERIFY(!stage.flyout->IsBusy());
    QCOMPARE(stage.command->runs.load(), 1);
    QCOMPARE(busy.count() + idle.count(), 2);
  }

  void keyboardAloneWorksTheFlyout() {
    Stage stage;
    stage.command->trigger();
    pressKey(stage.window, Qt::Key_5);
    pressKey(stage.window, Qt::Key_Tab);
    VELA_COMPARE_SCREEN("flyout");
    pressKey(stage.window, Qt::Key_Return);
    QTRY_COMPARE(stage.command->runs.load(), 1);
    QCOMPARE(stage.spin->value(), 5);
    QTRY_VERIFY(!stage.flyout->IsBusy());
    stage.button("Apply")->setFocus();
    stage.button("Reset")->setFocus();
    QVERIFY(stage.button("Apply")->isDefault());
    pressKey(stage.window, Qt::Key_Return); // presses the button, and does not apply
    pressKey(stage.window, Qt::Key_Escape);
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
    stage.edit->setFocus();
    stage.flyout->SetBusy(true);
    QVERIFY(QAccessible::queryAccessibleInterface(stage.flyout)->state().busy);
    pressKey(stage.window, Qt::Key_Escape);
    stage.flyout->SetBusy(false);
    QVERIFY(stage.flyout->isVisible() && stage.edit->hasFocus());
  }

  void focusComesBackFromAHost() {
    Stage stage;
    ArrowedWindow host(&stage.window);
    host.AttachWidget(stage.flyout);
    const std::function<void()> ways[] = {[&] { stage.flyout->CloseMe(); }, [&] { host.hide(); }};
    for (const auto& hide : ways) {
      stage.field->setFocus();
      host.show();
      QVERIFY(stage.spin->hasFocus());
      hide();
      QVERIFY(host.isHidden() && stage.field->hasFocus());
    }
    delete host.DetachWidget();
  }
};

VELA_TEST_MAIN(FlyoutTest)
#include "flyout_test.moc"
