// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/dialog_ex.h>

class QLabel;
class QPlainTextEdit;
class QToolButton;

namespace Vela::UiBase {

/// What a DialogEx says: the mark of its severity, the texts, and the details that unfold.
class DialogMessage : public QWidget {
  Q_OBJECT

public:
  explicit DialogMessage(QWidget* parent = nullptr);

  EDialogSeverity severity() const { return m_severity; }
  void setSeverity(EDialogSeverity severity);
  QString text() const;
  void setText(const QString& text);
  QString informativeText() const;
  void setInformativeText(const QString& text);
  QString details() const;
  void setDetails(const QString& details);
  bool areDetailsShown() const;
  void showDetails(bool show);

  /// What is read out when the dialog comes up.
  QString spokenText() const;
  QString wholeText() const;

Q_SIGNALS:
  void detailsToggled(bool shown);

private:
  QLayout* textColumn();
  void applyStyles();
  void updateDetails();

  EDialogSeverity m_severity = DialogPlain;
  QLabel* m_mark = nullptr;
  QLabel* m_text = nullptr;
  QLabel* m_informative = nullptr;
  QToolButton* m_unfold = nullptr;
  QPlainTextEdit* m_details = nullptr;
};

} // namespace Vela::UiBase
