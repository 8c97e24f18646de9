// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/popups/dialog_ex.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/popups/info_dialog.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/config_manager.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

using namespace Vela::UiBase;
using Vela::Services::ApplicationService;
using Vela::Services::ConfigManager;
using namespace Vela::Test;

namespace {

/// A window with a focused field, where a dialog finds and leaves the focus.
struct Work {
  Work() : window(new QWidget), field(new QLineEdit(window)) {
    (new QLineEdit(window))->move(0, 50);
    window->resize(300, 200);
    showActive(*window);
    field->setFocus();
  }
  ~Work() { delete window; }
  Q_DISABLE_COPY_MOVE(Work)

  QPointer<QWidget> window;
  QPointer<QLineEdit> field;
};

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
    Work work;
    auto* edit = new QLineEdit;
    const std::unique_ptr<MDialogBase> dialog(
        QtUiToolkit::CreateFlyoutDialog(edit, "Smooth", work.field, "Go", true, true, true, false, nullptr));
    QCOMPARE(dialog->parentWidget(), work.window);
    QCOMPARE(dialog->accessibleName(), "Smooth");
    const QSignalSpy applied(dialog.get(), &MDialogBase::ApplyChanges);
    const QSignalSpy reset(dialog.get(), &MDialogBase::ResetValues);
    const QSignalSpy cancelled(dialog.get(), &MDialogBase::CancelChanges);
    const QSignalSpy closed(dialog.get(), &MDialogBase::CloseFlyout);
    openDialog(*dialog);
    QVERIFY2(edit->hasFocus(), "the first control");
    type(*dialog, "12");
    pressKey(*dialog, Qt::Key_Return);
    QCOMPARE(edit->text(), "12");
    QCOMPARE(applied.size(), 1);
    QVERIFY2(dialog->isVisible(), "applying leaves it open");
    dialog->EnableApplyButton(false);
    pressKey(*dialog, Qt::Key_Return);
    dialog->Apply();
    QCOMPARE(applied.size(), 1);
    buttonSaying(*dialog, "Reset")->setFocus();
    pressKey(*dialog, Qt::Key_Space);
    QCOMPARE(reset.size(), 1);
    pressKey(*dialog, Qt::Key_Escape);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(cancelled.size(), 1);
    QCOMPARE(closed.size(), 1);
    QTRY_VERIFY(work.field->hasFocus());
  }

  void waysToClose_data() {
    const Rows<std::function<void(MDialogBase&)>, int> row("close", "cancelled");
    row(
        "window closed", [](MDialogBase& dialog) { dialog.close(); }, 1);
    row(
        "cancel button", [](MDialogBase& dialog) { buttonSaying(dialog, "Cancel")->click(); }, 1);
    row(
        "close button", [](MDialogBase& dialog) { buttonSaying(dialog, "Close")->click(); }, 0);
    row(
        "closed by program", [](MDialogBase& dialog) { dialog.CloseMe(); }, 0);
    const auto again = [](MDialogBase& dialog) {
      connect(&dialog, &MDialogBase::CancelChanges, &dialog, &MDialogBase::Cancel);
      connect(&dialog, &MDialogBase::CloseFlyout, &dialog, &MDialogBase::CloseMe);
      dialog.Cancel();
    };
    row("cancelled again by who hears of it", again, 1);
  }
  void waysToClose() {
    QFETCH(std::function<void(MDialogBase&)>, close);
    MDialogBase dialog("Smooth", new QLineEdit, true, true, true, true);
    const QSignalSpy cancels(&dialog, &MDialogBase::CancelChanges);
    const QSignalSpy closes(&dialog, &MDialogBase::CloseFlyout);
    const QSignalSpy finished(&dialog, &QDialog::finished);
    openDialog(dialog);
    close(dialog);
    QVERIFY(!dialog.isVisible());
    QTEST(int(cancels.size()), "cancelled");
    QCOMPARE(closes.size(), 1);
    QCOMPARE(finished.size(), 1);
    QCOMPARE(dialog.result(), cancels.isEmpty() ? int(QDialog::Accepted) : int(QDialog::Rejected));
  }

  void busyTakesNothingButDismissal() {
    auto* edit = new QLineEdit;
    MDialogBase dialog("Smooth", edit, true, true, true, false);
    const QSignalSpy applied(&dialog, &MDialogBase::ApplyChanges);
    dialog.EnableResetButton(false);
    openDialog(dialog);
    dialog.SetBusy(true);
    type(dialog, "12");
    pressKey(dialog, Qt::Key_Return);
    QVERIFY(edit->text().isEmpty() && applied.isEmpty());
    QVERIFY2(dialog.isVisible(), "Return does not reach the button that cancels");
    QVERIFY(dialog.findChild<QWidget*>("busy_label")->isVisible());
    QVERIFY(dialog.IsApplyButtonEnabled() && !dialog.IsResetButtonEnabled());
    dialog.SetBusy(false);
    QVERIFY2(edit->hasFocus(), "it comes back");
    QVERIFY2(!dialog.IsResetButtonEnabled(), "disabled before, disabled after");
    pressKey(dialog, Qt::Key_Return);
    QCOMPARE(applied.size(), 1);
    dialog.SetBusy(true);
    pressKey(dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
  }

  void aFlyoutAndItsDialogCloseTogether() {
    MDialogBase dialog;
    auto* flyout =
        QtUiToolkit::CreateFlyout("Smooth", new QLineEdit, nullptr, true, true, true, true, nullptr);
    dialog.SetContent(flyout);
    QCOMPARE(dialog.windowTitle(), "Smooth");
    const QSignalSpy applied(&dialog, &MDialogBase::ApplyChanges);
    const QSignalSpy cancelled(&dialog, &MDialogBase::CancelChanges);
    const QSignalSpy closed(&dialog, &MDialogBase::CloseFlyout);
    const QSignalSpy flyoutClosed(flyout, &FlyoutBase::CloseFlyout);
    const std::vector<std::function<void()>> ways = {[&] { flyout->Cancel(); },
                                                     [&] { flyout->CloseMe(); },
                                                     [&] { dialog.close(); },
                                                     [&] { dialog.CloseMe(); },
                                                     [&] { pressKey(dialog, Qt::Key_Escape); },
                                                     [&] {
                                                       flyout->SetBusy(true);
                                                       pressKey(dialog, Qt::Key_Escape);
                                                       flyout->SetBusy(false);
                                                     }};
    for (const auto& way : ways) {
      openDialog(dialog);
      QVERIFY(flyout->isVisible());
      pressKey(dialog, Qt::Key_Return);
      way();
      QVERIFY(!dialog.isVisible() && !flyout->isVisible());
    }
    QCOMPARE(applied.size(), 6);
    QCOMPARE(cancelled.size(), 4);
    QCOMPARE(closed.size(), 6);
    QCOMPARE(flyoutClosed.size(), 6);
  }

  void returnInAFlyoutWithoutApplyIsTheDialogs() {
    MDialogBase dialog;
    dialog.SetContent(
        QtUiToolkit::CreateFlyout("Smooth", new QLineEdit, nullptr, false, false, false, false, nullptr));
    dialog.AddButton("Go", QDialogButtonBox::AcceptRole);
    openDialog(dialog);
    QVERIFY(qobject_cast<QLineEdit*>(dialog.focusWidget()));
    pressKey(dialog, Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
  }

  void aContentLargerThanTheScreenScrolls() {
    auto* text = new QLabel(QString("more words than a screen has room for ").repeated(900));
    text->setWordWrap(true);
    MDialogBase dialog("Terms", text, false, false, false, true);
    openDialog(dialog);
    QVERIFY(dialog.screen()->availableGeometry().contains(dialog.geometry()));
    QVERIFY(dialog.rect().contains(buttonSaying(dialog, "Close")->geometry()));
    const int before = text->mapTo(&dialog, QPoint()).y();
    text->parentWidget()->parentWidget()->setFocus();
    pressKey(dialog, Qt::Key_PageDown);
    QVERIFY(text->mapTo(&dialog, QPoint()).y() < before);
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
    struct Case {
      int pressed; // -1 is Escape
      QString answer;
      int result;
    };
    for (const auto& [pressed, answer, result] :
         {Case{0, "Yes", 1}, Case{1, "refused", 0}, Case{2, "Throw away", 1}, Case{3, {}, 0},
          Case{-1, "refused", 0}}) {
      DialogEx dialog(DialogWarning, "Close", "There are changes.");
      dialog.AddButton("&Yes", QDialogButtonBox::YesRole);
      dialog.AddButton("No", QDialogButtonBox::NoRole)->setObjectName("refused");
      dialog.AddButton("Throw away", QDialogButtonBox::DestructiveRole);
      dialog.AddButton("Help", QDialogButtonBox::HelpRole); // does not answer
      openDialog(dialog);
      if (pressed < 0)
        pressKey(dialog, Qt::Key_Escape);
      else
        dialog.Buttons().at(pressed)->click();
      QCOMPARE(dialog.Answer(), answer);
      QCOMPARE(dialog.result(), result);
      QCOMPARE(dialog.isVisible(), answer.isEmpty());
    }
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

  void detailsUnfoldByKeyboard() {
    DialogEx dialog(DialogError, "Open", "The file could not be read.");
    dialog.SetDetails("line 12: no number");
    openDialog(dialog);
    auto* details = dialog.findChild<QPlainTextEdit*>();
    QVERIFY(!details->isVisible());
    settle();
    const QSize folded = dialog.size();
    pressKey(dialog, Qt::Key_D, Qt::AltModifier);
    QTRY_VERIFY(details->isVisible());
    settle();
    QVERIFY(dialog.height() >= folded.height() + details->minimumHeight());
    QVERIFY(dialog.rect().contains(QRect(details->mapTo(&dialog, QPoint()), details->size())));
    pressKey(dialog, Qt::Key_D, Qt::AltModifier);
    QTRY_VERIFY(!details->isVisible());
    settle();
    QCOMPARE(dialog.size(), folded);
  }

  void theParentDiesWhileItIsOpen() {
    auto* parent = new QWidget;
    parent->show();
    const QPointer<MDialogBase> dialog(new InfoDialog("About", parent));
    dialog->open();
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
