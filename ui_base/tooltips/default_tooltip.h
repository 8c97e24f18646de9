// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tooltips/a_tooltip_ex.h>

class QLabel;

namespace Vela::UiBase {

/// A tooltip of one text, which may be rich text. Long texts are wrapped.
///
/// @code
/// tooltipObject->SetTooltipControl(new DefaultTooltip(tr("Fit the mesh to the view")), true);
/// @endcode
class UI_BASE_EXPORT DefaultTooltip : public ATooltipEx {
  Q_OBJECT

public:
  /// Shows @p text, plain or rich.
  explicit DefaultTooltip(const QString& text, QWidget* parent = nullptr);
  ~DefaultTooltip() override;

  void SetText(const QString& text) override;
  QString Text() const override;

protected:
  void ApplyLook() override;

private:
  QLabel* const m_label;
};

} // namespace Vela::UiBase
