// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/rows.h>
#include <support/screen_record.h>
#include <ui_base/popups/dialog_ex.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/popups/info_dialog.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/config_manager.h>

using namespace Vela::UiBase;
using Vela::Services::ApplicationService;
using Vela::Services::ConfigManager;
using namespace Vela::Test;

namespace {

void openDialog(QDialog& dialog) {
  dialog.open();
  // Waiting for the window to be active is content with its parent's.
  QTRY_VERIFY(dialog.isActiveWindow());
}

void type(QWidget& window, const char* text) {
  for (; *text; ++text)
    QTest::keyClick(window.windowHandle(), *text);
}

QPushButton* buttonSaying(const QWidget& dialog, const QString& text) {
  const auto buttons = dialog.findChildren<QPushButton*>();
  const auto found = std::find_if(buttons.begin(), buttons.end(), [&](auto* b) { return b->text() == text; });
  return found == buttons.end() ? nullptr : *found;
}

QList<SDialogButton> saveDiscardCancel() {
  return {{"save", "Save"},
          {"discard", "Discard", QDialogButtonBox::DestructiveRole},
          {"cancel", "Cancel", QDialogButtonBox::RejectRole}};
}

} // namespace

class DialogsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void aFlyoutDialogByKeyboard() {
    QWidget window;
    new QLineEdit(&window);
    QLineEdit field(&window);
    showActive(window);
    field.setFocus();
    const std::unique_ptr<MDialogBase> dialog(QtUiToolkit::CreateFlyoutDialog(
        new QLineEdit, "Smooth", &field, "Go", true, true, true, false, nullptr));
    const QSignalSpy applied(dialog.get(), &MDialogBase::ApplyChanges);
    const QSignalSpy reset(dialog.get(), &MDialogBase::ResetValues);
    openDialog(*dialog);
    type(*dialog, "12");
    pressKey(*dialog, Qt::Key_Return);
    VELA_COMPARE_SCREEN("flyout_dialog");
    dialog->EnableApplyButton(false);
    pressKey(*dialog, Qt::Key_Return);
    dialog->Apply();
    QCOMPARE(applied.size(), 1);
    buttonSaying(*dialog, "Reset")->setFocus();
    pressKey(*dialog, Qt::Key_Space);
    QCOMPARE(reset.size(), 1);
    pressKey(*dialog, Qt::Key_Escape);
    QTRY_VERIFY(field.hasFocus());
  }

  void waysToClose_data() {
    const Rows<std::function<void(MDialogBase&)>, int> row("close", "cancelled");
    row(
        "cancel button", [](auto& dialog) { buttonSaying(dialog, "Cancel")->click(); }, 1);
    row(
        "close button", [](auto& dialog) { buttonSaying(dialog, "Close")->click(); }, 0);
    row(
        "closed by program", [](auto& dialog) { dialog.CloseMe(); }, 0);
    const auto again = [](MDialogBase& dialog) {
      connect(&dialog, &MDialogBase::CancelChanges, &dialog, &MDialogBase::Cancel);
      connect(&dialog, &MDialogBase::CloseFlyout, &dialog, &MDialogBase::CloseMe);
      dialog.close();
    };
    row(
        "accepted", [](auto& dialog) { dialog.AddButton("Yes", QDialogButtonBox::YesRole)->click(); }, 0);
    row(
        "refused", [](auto& dialog) { dialog.AddButton("No", QDialogButtonBox::NoRole)->click(); }, 1);
    row("window closed, and cancelled again by who hears of it", again, 1);
  }
  void waysToClose() {
    QFETCH(std::function<void(MDialogBase&)>, close);
    MDialogBase dialog("Smooth", new QLineEdit, AllPanelButtons);
    const QSignalSpy cancels(&dialog, &MDialogBase::CancelChanges);
    const QSignalSpy closes(&dialog, &MDialogBase::CloseFlyout);
    const QSignalSpy finished(&dialog, &QDialog::finished);
    openDialog(dialog);
    close(dialog);
    QVERIFY(!dialog.isVisible());
    QTEST(int(cancels.size()), "cancelled");
    QVERIFY(closes.size() == 1 && finished.size() == 1);
    QCOMPARE(dialog.result(), cancels.isEmpty() ? int(QDialog::Accepted) : int(QDialog::Rejected));
    dialog.Cancel(); // as it is closed nobody hears of that but its end
    QVERIFY(closes.size() == 1 && finished.size() == 2 && dialog.result() == QDialog::Rejected);
  }

  void busyTakesNothingButDismissal() {
    MDialogBase dialog("Smooth", new QLineEdit, true, true, true, false);
    const QSignalSpy applied(&dialog, &MDialogBase::ApplyChanges);
    dialog.EnableResetButton(false);
    openDialog(dialog);
    dialog.SetBusy(true);
    dialog.EnableApplyButton(false);
    dialog.EnableApplyButton(true);
    dialog.AddButton("Late", QDialogButtonBox::HelpRole);
    type(dialog, "12");
    pressKey(dialog, Qt::Key_Return);
    QVERIFY2(dialog.isVisible() && applied.isEmpty(), "Return does not reach the button that cancels");
    dialog.SetBusy(false);
    pressKey(dialog, Qt::Key_Return);
    QCOMPARE(applied.size(), 1);
    dialog.SetBusy(true);
    auto* const other = new QLineEdit;
    dialog.SetContent(other);
    QVERIFY(!other->isEnabled());
    pressKey(dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
  }

  void aFlyoutAndItsDialogCloseTogether() {
    MDialogBase dialog;
    auto* flyout =
        QtUiToolkit::CreateFlyout("Smooth", new QLineEdit, nullptr, true, true, true, true, nullptr);
    dialog.SetContent(flyout);
    const QSignalSpy cancelled(&dialog, &MDialogBase::CancelChanges);
    const QSignalSpy closed(&dialog, &MDialogBase::CloseFlyout);
    const QSignalSpy flyoutClosed(flyout, &FlyoutBase::CloseFlyout);
    const QSignalSpy applied(&dialog, &MDialogBase::ApplyChanges);
    const QSignalSpy reset(&dialog, &MDialogBase::ResetValues);
    openDialog(dialog);
    buttonSaying(dialog, "Reset")->click();
    buttonSaying(dialog, "Apply")->click();
    QVERIFY(applied.size() == 1 && reset.size() == 1);
    const std::function<void()> ways[] = {[&] { flyout->Cancel(); }, [&] { flyout->CloseMe(); },
                                          [&] { dialog.CloseMe(); },
                                          [&] {
                                            dialog.SetBusy(true);
                                            pressKey(dialog, Qt::Key_Escape);
                                            flyout->SetBusy(false);
                                          }};
    for (const auto& way : ways) {
      openDialog(dialog);
      QVERIFY(flyout->isVisible());
      way();
      QVERIFY(!dialog.isVisible() && !flyout->isVisible());
    }
    QCOMPARE(cancelled.size(), 2);
    QCOMPARE(closed.size(), 4);
    QCOMPARE(flyoutClosed.size(), 4);
  }

  void returnInAFlyoutWithoutApplyIsTheDialogs() {
    MDialogBase dialog;
    dialog.SetContent(
        QtUiToolkit::CreateFlyout("Smooth", new QLineEdit, nullptr, false, false, false, false, nullptr));
    dialog.AddButton("Go", QDialogButtonBox::AcceptRole);
    openDialog(dialog);
    pressKey(dialog, Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
  }

  void aContentLargerThanTheScreenScrolls() {
    auto* text = new QLabel(QString("more words than a screen has room for ").repeated(900));
    text->setWordWrap(true);
    MDialogBase dialog("Terms", text, false, false, false, true);
    dialog.resize(9000, 9000);
    openDialog(dialog);
    QVERIFY(dialog.screen()->availableGeometry().contains(dialog.frameGeometry()));
    text->parentWidget()->parentWidget()->setFocus();
    pressKey(dialog, Qt::Key_PageDown);
    settle();
  }

  void answers_data() {
    const Rows<QList<SDialogButton>, Qt::Key, QString, int> row("buttons", "pressed", "answer", "result");
    const auto save = saveDiscardCancel();
    row("Return is the default", save, Qt::Key_Return, "save", 1);
    row("Escape rejects", save, Qt::Key_Escape, "cancel", 0);
    row("Escape of the only one", save.first(1), Qt::Key_Escape, "save", 1);
    row("OK by itself", {}, Qt::Key_Return, "ok", 1);
    row("Escape must choose", save.first(2), Qt::Key_Escape, {}, 0);
  }
  void answers() {
    QFETCH(QList<SDialogButton>, buttons);
    QFETCH(Qt::Key, pressed);
    QFETCH(QString, answer);
    DialogEx dialog(DialogWarning, "Close", "There are changes.");
    for (const SDialogButton& button : std::as_const(buttons))
      dialog.AddNamedButton(button);
    const QSignalSpy finished(&dialog, &QDialog::finished);
    openDialog(dialog);
    pressKey(dialog, pressed);
    QCOMPARE(dialog.Answer(), answer);
    QTEST(dialog.result(), "result");
    QCOMPARE(dialog.isVisible(), answer.isEmpty());
    QCOMPARE(finished.size(), answer.isEmpty() ? 0 : 1);
  }

  void buttonsOfTheInheritedWay() {
    DialogEx dialog(DialogWarning, "Close", "There are changes.");
    dialog.AddButton("&Yes", QDialogButtonBox::YesRole);
    dialog.AddButton("No", QDialogButtonBox::NoRole)->setObjectName("refused");
    dialog.AddButton("Help", QDialogButtonBox::HelpRole);
    openDialog(dialog);
    dialog.Buttons().at(2)->click();
    QVERIFY2(dialog.isVisible() && dialog.Answer().isEmpty(), "help is no answer");
    VELA_COMPARE_SCREEN("question");
    dialog.Buttons().at(0)->click();
    QCOMPARE(dialog.Answer(), "Yes");
    openDialog(dialog);
    pressKey(dialog, Qt::Key_Escape);
    QCOMPARE(dialog.Answer(), "refused");
  }

  void detailsUnfoldAndAreCopied() {
    DialogEx dialog(DialogError, "<Export>", "The <b>file could not be written.");
    dialog.SetInformativeText("The <b>disk is full.");
    dialog.SetDetails("28");
    dialog.AddNamedButton(saveDiscardCancel().constFirst());
    openDialog(dialog);
    dialog.SetRememberKey("ask/export", "Next time as well");
    settle();
    const QSize folded = dialog.size();
    dialog.ShowDetails(true);
    QVERIFY(dialog.NamedButton("save")->hasFocus());
    VELA_COMPARE_SCREEN("details");
    pressKey(dialog, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(),
             "<Export>\n\nThe <b>file could not be written.\nThe <b>disk is full.\n\n28");
    dialog.ShowDetails(false);
    QCOMPARE(dialog.size(), folded);
    const QRect screen = dialog.screen()->availableGeometry();
    dialog.move(screen.bottomLeft() - QPoint(0, folded.height()));
    dialog.ShowDetails(true);
    QVERIFY(dialog.geometry().bottom() <= screen.bottom());
    dialog.SetDetails({});
    QVERIFY(!dialog.AreDetailsShown());
    settle();
  }

  void anAnswerIsRemembered() {
    const QTemporaryDir folder;
    ApplicationService::GetInstance().setConfigManager(
        std::make_unique<ConfigManager>(folder.filePath("settings.ini")));
    const QString setting = "ask/close";
    const auto ask = [&](Qt::Key pressed) {
      bool shown = false;
      // The timer goes on: on Windows a loop that was left under a key of QtTest ends with the next message.
      QTimer user;
      user.callOnTimeout([&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (shown || !dialog)
          return;
        shown = true;
        dialog->findChild<QCheckBox*>()->setChecked(true);
        pressKey(*dialog, pressed);
      });
      user.start(1);
      const QString answer =
          DialogEx::Ask(nullptr, DialogWarning, "Close", "There are changes.", saveDiscardCancel(), setting);
      settle();
      return QString("%1 %2").arg(answer, shown ? "asked" : "known");
    };
    QCOMPARE(ask(Qt::Key_Escape), "cancel asked");
    QCOMPARE(ask(Qt::Key_Return), "save asked"); // cancelling is not kept
    QCOMPARE(ask(Qt::Key_Escape), "save known");
    ApplicationService::GetInstance().GetConfigManager().setValue(setting, "of another version");
    QCOMPARE(ask(Qt::Key_Return), "save asked");

    DialogEx dialog(DialogWarning, "Close", "There are changes.");
    dialog.AddNamedButton(saveDiscardCancel().constFirst());
    dialog.SetRememberKey(setting);
    const QSignalSpy finished(&dialog, &QDialog::finished);
    dialog.open();
    QVERIFY2(!dialog.isVisible() && finished.isEmpty(), "the end is told later, as of any opened dialog");
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(dialog.Answer(), "save");
    DialogEx::ForgetAnswer(setting);
    QCOMPARE(ask(Qt::Key_Escape), "cancel asked");
    ApplicationService::GetInstance().setConfigManager(nullptr);
  }

  void theParentDiesWhileItIsOpen() {
    auto* parent = new QWidget;
    parent->show();
    const QPointer<MDialogBase> dialog(new InfoDialog("About", parent));
    dialog->open();
    VELA_COMPARE_SCREEN("information_dialog");
    dialog->SetBusy(true);
    delete parent;
    QVERIFY(!dialog);

    auto* asking = new QWidget;
    QTimer::singleShot(0, asking, [&] { delete asking; });
    QCOMPARE(DialogEx::Ask(asking, DialogInfo, "Title", "Text"), QString());
  }
};

VELA_TEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
