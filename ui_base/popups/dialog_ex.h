// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/dialog_severity.h>
#include <ui_base/popups/m_dialog_base.h>

#include <QList>
#include <QString>

namespace Vela::UiBase {

class DialogExPrivate;

/// A button of a DialogEx: a name for programs, which is never translated, and a text for the user.
struct SDialogButton {
  QString name;
  QString text;
  QDialogButtonBox::ButtonRole role = QDialogButtonBox::AcceptRole;
};

/// Tells the user something, or asks: a text with a mark of its severity, more about it below, details that
/// unfold, and buttons with names. All texts are plain text.
///
/// Every named button closes the dialog; Answer() is the name of the one that did. Escape answers with the
/// rejecting button, else with the only one that says no, else with the only one there is. A dialog without
/// buttons gets one that says "OK". A button from AddButton() answers with its object name, or with its text;
/// such a text is not remembered.
///
/// With SetRememberKey() the user may choose not to be asked again. The answer is then kept in the settings
/// of the application, and the dialog finishes with it at once, without being shown. Rejecting is never kept.
///
/// Control+C copies everything the dialog says.
///
/// @code
/// auto* dialog = new DialogEx(DialogWarning, tr("Close the mesh"), tr("bunny.obj has changes."), window);
/// dialog->setAttribute(Qt::WA_DeleteOnClose);
/// dialog->AddNamedButton({QStringLiteral("save"), tr("Save")});
/// dialog->AddNamedButton({QStringLiteral("discard"), tr("Discard"), QDialogButtonBox::DestructiveRole});
/// dialog->AddNamedButton({QStringLiteral("cancel"), tr("Cancel"), QDialogButtonBox::RejectRole});
/// connect(dialog, &QDialog::finished, this, [this, dialog] { closeMesh(dialog->Answer()); });
/// dialog->open();
/// @endcode
class UI_BASE_EXPORT DialogEx : public MDialogBase {
  Q_OBJECT

public:
  /// Without text and buttons; OK comes by itself.
  explicit DialogEx(QWidget* parent = nullptr);
  /// Says @p text under @p title, with the icon of the severity.
  DialogEx(EDialogSeverity severity, const QString& title, const QString& text, QWidget* parent = nullptr);
  ~DialogEx() override;

  /// What the icon tells.
  EDialogSeverity Severity() const;
  /// See Severity().
  void SetSeverity(EDialogSeverity severity);
  /// What happened or is asked.
  QString Text() const;
  /// See Text().
  void SetText(const QString& text);
  /// More about it, and what can be done.
  QString InformativeText() const;
  /// See InformativeText().
  void SetInformativeText(const QString& text);
  /// What the user need not read, such as the message of another program. Folded in at first.
  QString Details() const;
  /// See Details().
  void SetDetails(const QString& details);
  /// Whether the details are unfolded.
  bool AreDetailsShown() const;
  /// Unfolds the details, or folds them up.
  void ShowDetails(bool show);

  /// Appends a button. One with the name of another replaces nothing: names are the caller's to keep apart.
  QPushButton* AddNamedButton(const SDialogButton& button);
  /// The button of that name, or null.
  QPushButton* NamedButton(const QString& name) const;
  /// The name of the button that closed the dialog, or whose answer was remembered; empty when none did.
  QString Answer() const;

  /// Offers the user to keep the answer in the settings under this key; an empty key takes the offer back.
  /// @param text of the check box; "Do not ask again" when empty.
  void SetRememberKey(const QString& key, const QString& text = {});
  /// The answer that the settings hold under this key, or an empty one.
  static QString RememberedAnswer(const QString& key);
  /// Lets the dialog ask again.
  static void ForgetAnswer(const QString& key);

  /// Shows the dialog and waits. Without buttons there is one that says "OK".
  /// @return the name of the answer; empty when the dialog ended without one, for example with its parent.
  static QString Ask(QWidget* parent, EDialogSeverity severity, const QString& title, const QString& text,
                     const QList<SDialogButton>& buttons = {}, const QString& rememberKey = {});

  void setVisible(bool visible) override;

public Q_SLOTS:
  void open() override;
  int exec() override;
  void reject() override;

protected:
  void OnButtonClicked(QPushButton* button, QDialogButtonBox::ButtonRole role) override;

  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  friend class DialogExPrivate;
  void onDetailsToggled(bool shown);

  const std::unique_ptr<DialogExPrivate> d;
};

} // namespace Vela::UiBase
