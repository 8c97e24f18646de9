// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QPointer>
#include <QString>
#include <QWidget>

class QLabel;

namespace Vela::UiBase {

/// The base of what is shown in a tooltip: a widget that takes no focus, is as large as its content, has
/// the looks of tooltips in the palette in use, and may point to a page of the help.
///
/// Handed to ATooltipObject::SetTooltipControl(), which takes it over.
///
/// @code
/// class ColorTooltip : public Vela::UiBase::ATooltipEx {
/// public:
///   ColorTooltip() : m_label(new QLabel(this)) {
///     (new QVBoxLayout(this))->addWidget(m_label);
///   }
///   void SetText(const QString& text) override { m_label->setText(text); }
///   QString Text() const override { return m_label->text(); }
/// private:
///   QLabel* const m_label;
/// };
/// @endcode
class UI_BASE_EXPORT ATooltipEx : public QWidget {
  Q_OBJECT

public:
  ~ATooltipEx() override;

  /// The text that the tooltip is about; plain or rich.
  virtual void SetText(const QString& text) = 0;
  /// See SetText().
  virtual QString Text() const = 0;
  /// All there is to read, in plain text; what assistive technology reads out.
  virtual QString AccessibleText() const;

  /// Why what the tooltip is about cannot be used, below all else; empty takes it away. Set by the tooltip
  /// object each time it is shown. Shown where the layout is a vertical box; others override it.
  virtual void SetReason(const QString& reason);

  /// The page of the help that tells more: its index, or -1, and the keyword to look up there.
  virtual void SetTooltipIndex(int index);
  /// See SetTooltipIndex().
  int TooltipIndex() const;
  /// The word HelpRequested() tells.
  virtual void SetTooltipKeyword(const QString& keyword);
  /// See SetTooltipKeyword().
  QString TooltipKeyword() const;
  /// Whether there is an index or a keyword to ask help for.
  bool HasHelp() const;

  /// F1 was pressed while the tooltip is up. Asks for the help when there is a page.
  /// @return whether the key was of use; if so nobody else gets it.
  virtual bool HandleHelpKey();

Q_SIGNALS:
  /// The user wants the page of the help.
  void HelpRequested(int index, const QString& keyword);

protected:
  /// For subclasses.
  explicit ATooltipEx(QWidget* parent = nullptr);

  /// Puts on the looks of the palette in use. Called when the palette changes; call it in the constructor of
  /// the subclass once its widgets are there.
  virtual void ApplyLook();

private:
  QPointer<QLabel> m_reason;
  int m_index = -1;
  QString m_keyword;
};

} // namespace Vela::UiBase
