// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/panel_buttons.h>
#include <ui_base/ui_base_export.h>

#include <QDialog>
#include <QDialogButtonBox>

#include <memory>

class QPushButton;

namespace Vela::UiBase {

class FlyoutBase;
class MDialogBasePrivate;

/// The base of all dialogs: a title, a content and a row of buttons in one look that follows the palette.
///
/// The dialog owns its content and its buttons. It is never larger than its screen: a content that needs more
/// room scrolls. When it closes, the focus goes back to where it was.
///
/// It can work like a flyout, with buttons that apply, reset, cancel and close, and announces the same. It
/// can also hold a FlyoutBase, which then keeps its own title and buttons: what the flyout announces the
/// dialog announces too, and they close together.
///
/// Keyboard: Return presses the default button, or the one with the focus; Escape dismisses. While the dialog
/// is busy only dismissing is possible.
///
/// @code
/// auto* dialog = new MDialogBase(window);
/// dialog->setAttribute(Qt::WA_DeleteOnClose);
/// dialog->SetTitle(tr("Export"));
/// dialog->SetContent(new ExportPanel);
/// dialog->AddButton(tr("Cancel"), QDialogButtonBox::RejectRole);
/// dialog->SetDefaultButton(dialog->AddButton(tr("Export"), QDialogButtonBox::AcceptRole));
/// connect(dialog, &QDialog::accepted, exporter, &Exporter::start);
/// dialog->open();
/// @endcode
class UI_BASE_EXPORT MDialogBase : public QDialog {
  Q_OBJECT

public:
  /// Without title, content and buttons.
  explicit MDialogBase(QWidget* parent = nullptr);
  /// A dialog that works like a flyout.
  /// @param content the controls, taken over; may be null.
  MDialogBase(const QString& title, QWidget* content, PanelButtons buttons, QWidget* parent = nullptr);
  /// The same.
  /// @param apply,reset,cancel,close which buttons there are.
  MDialogBase(const QString& title, QWidget* content, bool apply, bool reset, bool cancel, bool close,
              QWidget* parent = nullptr);
  ~MDialogBase() override;

  /// The title in the dialog and of its window; also the accessible name.
  QString Title() const;
  /// See Title().
  void SetTitle(const QString& title);
  /// The text of the apply button, "Apply" unless set.
  void SetApplyText(const QString& text);

  /// Null while there is none.
  QWidget* Content() const;
  /// Takes the content over and deletes the one before. A flyout with a title gives it to the dialog.
  void SetContent(QWidget* content);
  /// The content as a flyout, or null when it is something else.
  FlyoutBase* Flyout() const;

  /// The button the dialog belongs to, not owned; null when there is none or it has died.
  QWidget* ToolButton() const;
  /// See ToolButton().
  void SetToolButton(QWidget* button);

  /// Appends a button to the row, which puts it where the desktop expects its role. Those of the accepting
  /// and the yes role accept the dialog, those of the rejecting and the no role reject it; others do nothing
  /// by themselves.
  QPushButton* AddButton(const QString& text, QDialogButtonBox::ButtonRole role);
  /// In the order of adding, without those for apply, reset, cancel and close.
  QList<QPushButton*> Buttons() const;
  /// The button that Return presses while no other has the focus. The first of the accepting role unless set;
  /// null when there is none.
  QPushButton* DefaultButton() const;
  /// See DefaultButton().
  void SetDefaultButton(QPushButton* button);

  /// Whether there is such a button and it can be pressed when the dialog is not busy.
  bool IsApplyButtonEnabled() const;
  /// The same for the button that resets.
  bool IsResetButtonEnabled() const;
  /// See IsApplyButtonEnabled().
  void EnableApplyButton(bool enable);
  /// See IsResetButtonEnabled().
  void EnableResetButton(bool enable);

  /// While it works the dialog takes no input but dismissing it, and shows that it does.
  bool IsBusy() const;
  /// See IsBusy().
  void SetBusy(bool busy);

  void setVisible(bool visible) override;

public Q_SLOTS:
  /// What the buttons do; also for programs.
  void Apply();
  /// See Apply().
  void Reset();
  /// The same as reject().
  void Cancel();
  /// Closes the dialog and keeps the changes. Does nothing when it is not open.
  void CloseMe();

  /// Dismisses the dialog, as Escape and the window's own button do.
  void reject() override;
  void done(int result) override;

Q_SIGNALS:
  /// Apply was pressed.
  void ApplyChanges();
  /// Reset was pressed.
  void ResetValues();
  /// The dialog was dismissed; the changes are not wanted.
  void CancelChanges();
  /// The dialog closes, for whatever reason; sent once for each time it was open.
  void CloseFlyout();

protected:
  /// What a button does that was appended by AddButton(): the accepting and the yes role accept, the
  /// rejecting and the no role reject, others do nothing.
  virtual void OnButtonClicked(QPushButton* button, QDialogButtonBox::ButtonRole role);
  /// InvalidRole for a button of somebody else.
  QDialogButtonBox::ButtonRole ButtonRole(QPushButton* button) const;

  /// Where subclasses put what belongs between the content and the buttons on the left, such as a check box.
  /// Takes the widget over.
  void AddFooter(QWidget* widget);

  /// Gives the dialog this height in pixels, or the one that its content needs where that is more. It stays
  /// on the screen.
  void ChangeHeight(int height);

private:
  const std::unique_ptr<MDialogBasePrivate> d;
};

} // namespace Vela::UiBase
