// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tooltips/a_tooltip_ex.h>

#include <memory>

class QIcon;

namespace Vela::UiBase {

class TooltipExPrivate;

/// A rich tooltip: a title with a shortcut, a text, and an advanced section, a picture or a widget, that is
/// folded away at first. It unfolds when the tooltip has been up for a while, when the mouse comes over the
/// tooltip, or with F1. F1 asks for the help once there is nothing left to unfold.
///
/// @code
/// auto* tooltip = new TooltipEx(tr("Smooth"), tr("Evens out noise and keeps the edges."));
/// tooltip->SetShortcut(QStringLiteral("Ctrl+M"));
/// tooltip->SetAdvancedPicture(QIcon(QStringLiteral(":/help/smooth.png")), QSize(240, 120));
/// tooltip->SetTooltipIndex(17);
/// tooltipObject->SetTooltipControl(tooltip, true);
/// @endcode
class UI_BASE_EXPORT TooltipEx : public ATooltipEx {
  Q_OBJECT

public:
  /// A title in bold over a text; either may be empty.
  explicit TooltipEx(const QString& title = QString(), const QString& text = QString(),
                     QWidget* parent = nullptr);
  ~TooltipEx() override;

  /// Parts without a text take no room.
  QString Title() const;
  /// See Title().
  void SetTitle(const QString& title);
  /// As the user reads it, see QKeySequence::toString(QKeySequence::NativeText).
  QString Shortcut() const;
  /// See Shortcut().
  void SetShortcut(const QString& shortcut);
  QString Text() const override;
  void SetText(const QString& text) override;
  QString AccessibleText() const override;

  /// The advanced section: a widget, taken over in place of the one before. Null takes the section away.
  QWidget* AdvancedWidget() const;
  /// See AdvancedWidget().
  void SetAdvancedWidget(QWidget* widget);
  /// The advanced section: a picture of this size in device-independent pixels, as sharp as the screen
  /// allows.
  void SetAdvancedPicture(const QIcon& picture, const QSize& size);

  /// After how many milliseconds on the screen the section unfolds; TooltipTimes::unfold unless set. A
  /// negative time means never by itself.
  int UnfoldTime() const;
  /// See UnfoldTime().
  void SetUnfoldTime(int milliseconds);
  /// Whether the advanced part is shown.
  bool IsUnfolded() const;

  void SetTooltipIndex(int index) override;
  void SetTooltipKeyword(const QString& keyword) override;
  bool HandleHelpKey() override;

public Q_SLOTS:
  /// Does nothing without an advanced section. Each showing begins folded.
  void SetUnfolded(bool unfolded);

Q_SIGNALS:
  /// The advanced part was shown or hidden.
  void UnfoldedChanged(bool unfolded);

protected:
  void changeEvent(QEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  const std::unique_ptr<TooltipExPrivate> d;
};

} // namespace Vela::UiBase
