// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/notifications/layout_base_widget.h>
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
using Vela::Test::settle;

namespace {

/// A window with a focused field, where a dialog finds and leaves the focus.
struct Work {
  Work() : window(new QWidget), field(new QLineEdit(window)) {
    (new QLineEdit(window))->move(0, 50);
    window->resize(300, 200);
    window->show();
    window->activateWindow();
    field->setFocus();
    [[maybe_unused]] const bool active = QTest::qWaitForWindowActive(window);
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

void key(QWidget& window, Qt::Key which, Qt::KeyboardModifiers modifiers = {}) {
  QTest::keyClick(window.windowHandle(), which, modifiers);
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
  return {{QStringLiteral("save"), QStringLiteral("Save")},
          {QStringLiteral("discard"), QStringLiteral("Discard"), QDialogButtonBox::DestructiveRole},
          {QStringLiteral("cancel"), QStringLiteral("Cancel"), QDialogButtonBox::RejectRole}};
}

} // namespace

class DialogsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void aFlyoutDialogByKeyboard() {
    Work work;
    auto* edit = new QLineEdit;
    const std::unique_ptr<MDialogBase> dialog(QtUiToolkit::CreateFlyoutDialog(
        edit, QStringLiteral("Smooth"), work.field, QStringLiteral("Go"), true, true, true, false, nullptr));
    QCOMPARE(dialog->parentWidget(), work.window);
    QCOMPARE(dialog->accessibleName(), QStringLiteral("Smooth"));
    const QSignalSpy applied(dialog.get(), &MDialogBase::ApplyChanges);
    const QSignalSpy reset(dialog.get(), &MDialogBase::ResetValues);
    const QSignalSpy cancelled(dialog.get(), &MDialogBase::CancelChanges);
    const QSignalSpy closed(dialog.get(), &MDialogBase::CloseFlyout);
    openDialog(*dialog);
    QVERIFY2(edit->hasFocus(), "the first control");
    type(*dialog, "12");
    key(*dialog, Qt::Key_Return);
    QCOMPARE(edit->text(), QStringLiteral("12"));
    QCOMPARE(applied.size(), 1);
    QVERIFY2(dialog->isVisible(), "applying leaves it open");
    dialog->EnableApplyButton(false);
    key(*dialog, Qt::Key_Return);
    dialog->Apply();
    QCOMPARE(applied.size(), 1);
    buttonSaying(*dialog, QStringLiteral("Reset"))->setFocus();
    key(*dialog, Qt::Key_Space);
    QCOMPARE(reset.size(), 1);
    key(*dialog, Qt::Key_Escape);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(cancelled.size(), 1);
    QCOMPARE(closed.size(), 1);
    QTRY_VERIFY(work.field->hasFocus());
  }

  void waysToClose_data() {
    QTest::addColumn<std::function<void(MDialogBase&)>>("close");
    QTest::addColumn<int>("cancelled");
    const auto row = [](const char* name, int cancelled, std::function<void(MDialogBase&)> close) {
      QTest::newRow(name) << std::move(close) << cancelled;
    };
    row("window closed", 1, [](MDialogBase& dialog) { dialog.close(); });
    row("cancel button", 1, [](MDialogBase& d) { buttonSaying(d, QStringLiteral("Cancel"))->click(); });
    row("close button", 0, [](MDialogBase& d) { buttonSaying(d, QStringLiteral("Close"))->click(); });
    row("closed by program", 0, [](MDialogBase& dialog) { dialog.CloseMe(); });
    row("cancelled again by who hears of it", 1, [](MDialogBase& dialog) {
      connect(&dialog, &MDialogBase::CancelChanges, &dialog, &MDialogBase::Cancel);
      connect(&dialog, &MDialogBase::CloseFlyout, &dialog, &MDialogBase::CloseMe);
      dialog.Cancel();
    });
  }
  void waysToClose() {
    QFETCH(std::function<void(MDialogBase&)>, close);
    MDialogBase dialog(QStringLiteral("Smooth"), new QLineEdit, true, true, true, true);
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
    MDialogBase dialog(QStringLiteral("Smooth"), edit, true, true, true, false);
    const QSignalSpy applied(&dialog, &MDialogBase::ApplyChanges);
    dialog.EnableResetButton(false);
    openDialog(dialog);
    dialog.SetBusy(true);
    type(dialog, "12");
    key(dialog, Qt::Key_Return);
    QVERIFY(edit->text().isEmpty() && applied.isEmpty());
    QVERIFY2(dialog.isVisible(), "Return does not reach the button that cancels");
    QVERIFY(dialog.findChild<QWidget*>(QStringLiteral("busy_label"))->isVisible());
    QVERIFY(dialog.IsApplyButtonEnabled() && !dialog.IsResetButtonEnabled());
    dialog.SetBusy(false);
    QVERIFY2(edit->hasFocus(), "it comes back");
    QVERIFY2(!dialog.IsResetButtonEnabled(), "disabled before, disabled after");
    key(dialog, Qt::Key_Return);
    QCOMPARE(applied.size(), 1);
    dialog.SetBusy(true);
    key(dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
  }

  void aFlyoutAndItsDialogCloseTogether() {
    MDialogBase dialog;
    auto* flyout = QtUiToolkit::CreateFlyout(QStringLiteral("Smooth"), new QLineEdit, nullptr, true, true,
                                             true, true, nullptr);
    dialog.SetContent(flyout);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Smooth"));
    const QSignalSpy applied(&dialog, &MDialogBase::ApplyChanges);
    const QSignalSpy cancelled(&dialog, &MDialogBase::CancelChanges);
    const QSignalSpy closed(&dialog, &MDialogBase::CloseFlyout);
    const QSignalSpy flyoutClosed(flyout, &FlyoutBase::CloseFlyout);
    const std::vector<std::function<void()>> ways = {[&] { flyout->Cancel(); },
                                                     [&] { flyout->CloseMe(); },
                                                     [&] { dialog.close(); },
                                                     [&] { dialog.CloseMe(); },
                                                     [&] { key(dialog, Qt::Key_Escape); },
                                                     [&] {
                                                       flyout->SetBusy(true);
                                                       key(dialog, Qt::Key_Escape);
                                                       flyout->SetBusy(false);
                                                     }};
    for (const auto& way : ways) {
      openDialog(dialog);
      QVERIFY(flyout->isVisible());
      key(dialog, Qt::Key_Return);
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
    dialog.SetContent(QtUiToolkit::CreateFlyout(QStringLiteral("Smooth"), new QLineEdit, nullptr, false,
                                                false, false, false, nullptr));
    dialog.AddButton(QStringLiteral("Go"), QDialogButtonBox::AcceptRole);
    openDialog(dialog);
    QVERIFY(qobject_cast<QLineEdit*>(dialog.focusWidget()));
    key(dialog, Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
  }

  void aContentLargerThanTheScreenScrolls() {
    auto* text = new QLabel(QStringLiteral("more words than a screen has room for ").repeated(900));
    text->setWordWrap(true);
    MDialogBase dialog(QStringLiteral("Terms"), text, false, false, false, true);
    openDialog(dialog);
    QVERIFY(dialog.screen()->availableGeometry().contains(dialog.geometry()));
    QVERIFY(dialog.rect().contains(buttonSaying(dialog, QStringLiteral("Close"))->geometry()));
    const int before = text->mapTo(&dialog, QPoint()).y();
    text->parentWidget()->parentWidget()->setFocus();
    key(dialog, Qt::Key_PageDown);
    QVERIFY(text->mapTo(&dialog, QPoint()).y() < before);
  }

  void answers_data() {
    QTest::addColumn<QList<SDialogButton>>("buttons");
    QTest::addColumn<Qt::Key>("pressed");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("result");
    const auto save = saveDiscardCancel();
    QTest::newRow("Return is the default") << save << Qt::Key_Return << QStringLiteral("save") << 1;
    QTest::newRow("Escape rejects") << save << Qt::Key_Escape << QStringLiteral("cancel") << 0;
    QTest::newRow("Escape of the only one") << save.first(1) << Qt::Key_Escape << QStringLiteral("save") << 1;
    QTest::newRow("OK by itself") << QList<SDialogButton>() << Qt::Key_Return << QStringLiteral("ok") << 1;
    QTest::newRow("Escape must choose") << save.first(2) << Qt::Key_Escape << QString() << 0;
  }
  void answers() {
    QFETCH(QList<SDialogButton>, buttons);
    QFETCH(Qt::Key, pressed);
    QFETCH(QString, answer);
    DialogEx dialog(DialogWarning, QStringLiteral("Close"), QStringLiteral("There are changes."));
    for (const SDialogButton& button : std::as_const(buttons))
      dialog.AddNamedButton(button);
    const QSignalSpy finished(&dialog, &QDialog::finished);
    openDialog(dialog);
    key(dialog, pressed);
    QCOMPARE(dialog.Answer(), answer);
    QTEST(dialog.result(), "result");
    QCOMPARE(dialog.isVisible(), answer.isEmpty());
    QCOMPARE(finished.size(), answer.isEmpty() ? 0 : 1);
  }

  void buttonsOfTheInheritedWay_data() {
    QTest::addColumn<int>("pressed"); // -1 is Escape
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("result");
    QTest::newRow("yes") << 0 << QStringLiteral("Yes") << 1;
    QTest::newRow("named, no") << 1 << QStringLiteral("refused") << 0;
    QTest::newRow("destructive") << 2 << QStringLiteral("Throw away") << 1;
    QTest::newRow("help does not answer") << 3 << QString() << 0;
    QTest::newRow("Escape refuses") << -1 << QStringLiteral("refused") << 0;
  }
  void buttonsOfTheInheritedWay() {
    QFETCH(int, pressed);
    QFETCH(QString, answer);
    DialogEx dialog(DialogWarning, QStringLiteral("Close"), QStringLiteral("There are changes."));
    dialog.AddButton(QStringLiteral("&Yes"), QDialogButtonBox::YesRole);
    dialog.AddButton(QStringLiteral("No"), QDialogButtonBox::NoRole)
        ->setObjectName(QStringLiteral("refused"));
    dialog.AddButton(QStringLiteral("Throw away"), QDialogButtonBox::DestructiveRole);
    dialog.AddButton(QStringLiteral("Help"), QDialogButtonBox::HelpRole);
    openDialog(dialog);
    QCOMPARE(dialog.Buttons().size(), 4);
    if (pressed < 0)
      key(dialog, Qt::Key_Escape);
    else
      dialog.Buttons().at(pressed)->click();
    QCOMPARE(dialog.Answer(), answer);
    QTEST(dialog.result(), "result");
    QCOMPARE(dialog.isVisible(), answer.isEmpty());
  }

  void anAnswerIsRemembered() {
    const QTemporaryDir folder;
    ApplicationService::GetInstance().setConfigManager(
        std::make_unique<ConfigManager>(folder.filePath(QStringLiteral("settings.ini"))));
    const QString setting = QStringLiteral("ask/close");
    const auto ask = [&](Qt::Key pressed) {
      bool shown = false;
      QTimer::singleShot(0, qApp, [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        shown = dialog != nullptr;
        if (!shown)
          return;
        dialog->findChild<QCheckBox*>()->setChecked(true);
        key(*dialog, pressed);
      });
      const QString answer =
          DialogEx::Ask(nullptr, DialogWarning, QStringLiteral("Close"), QStringLiteral("There are changes."),
                        saveDiscardCancel(), setting);
      settle();
      return QStringLiteral("%1 %2").arg(answer, shown ? QStringLiteral("asked") : QStringLiteral("known"));
    };
    QCOMPARE(ask(Qt::Key_Escape), QStringLiteral("cancel asked"));
    QCOMPARE(ask(Qt::Key_Return), QStringLiteral("save asked")); // cancelling is not kept
    QCOMPARE(ask(Qt::Key_Escape), QStringLiteral("save known"));
    ApplicationService::GetInstance().GetConfigManager().setValue(setting,
                                                                  QStringLiteral("of another version"));
    QCOMPARE(ask(Qt::Key_Return), QStringLiteral("save asked"));

    DialogEx dialog(DialogWarning, QStringLiteral("Close"), QStringLiteral("There are changes."));
    dialog.AddNamedButton(saveDiscardCancel().constFirst());
    dialog.SetRememberKey(setting);
    const QSignalSpy finished(&dialog, &QDialog::finished);
    dialog.open();
    QVERIFY2(!dialog.isVisible() && finished.isEmpty(), "the end is told later, as of any opened dialog");
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(dialog.Answer(), QStringLiteral("save"));
    DialogEx::ForgetAnswer(setting);
    QCOMPARE(ask(Qt::Key_Escape), QStringLiteral("cancel asked"));
    ApplicationService::GetInstance().setConfigManager(nullptr);
  }

  void detailsUnfoldByKeyboard() {
    DialogEx dialog(DialogError, QStringLiteral("Open"), QStringLiteral("The file could not be read."));
    dialog.SetDetails(QStringLiteral("line 12: no number"));
    openDialog(dialog);
    auto* details = dialog.findChild<QPlainTextEdit*>();
    QVERIFY(!details->isVisible());
    settle();
    const QSize folded = dialog.size();
    key(dialog, Qt::Key_D, Qt::AltModifier);
    QTRY_VERIFY(details->isVisible());
    settle();
    QVERIFY(dialog.height() >= folded.height() + details->minimumHeight());
    QVERIFY(dialog.rect().contains(QRect(details->mapTo(&dialog, QPoint()), details->size())));
    key(dialog, Qt::Key_D, Qt::AltModifier);
    QTRY_VERIFY(!details->isVisible());
    settle();
    QCOMPARE(dialog.size(), folded);
  }

  void theParentDiesWhileItIsOpen() {
    auto* parent = new QWidget;
    parent->show();
    const QPointer<MDialogBase> dialog(new InfoDialog(QStringLiteral("About"), parent));
    dialog->open();
    dialog->SetBusy(true);
    delete parent;
    QVERIFY(!dialog);

    auto* asking = new QWidget;
    QTimer::singleShot(0, asking, [&] { delete asking; });
    QCOMPARE(DialogEx::Ask(asking, DialogInfo, QStringLiteral("Title"), QStringLiteral("Text")), QString());
  }

  void hiddenContentsLeaveNoGapInAGrid() {
    LayoutBaseWidget panel;
    panel.setArrangement(LayoutBaseWidget::Grid, 2);
    panel.setContentMargin(5);
    panel.setSpacing(3);
    QList<QWidget*> contents;
    for (int i = 0; i < 5; ++i) {
      contents.append(new QWidget);
      contents.last()->setFixedSize(20, 10);
      panel.addWidget(contents.last());
    }
    panel.show();
    contents.at(1)->hide();
    settle();
    panel.resize(panel.minimumSize());
    settle();
    QCOMPARE(contents.at(2)->pos(), QPoint(28, 5));
  }
};

VELA_TEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
