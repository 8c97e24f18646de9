// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QWidget>

class QLabel;

namespace Vela::UiToolkit {

/// A sample of the advanced section of a rich tooltip: a text above a picture. A pattern for sections of
/// one's own.
///
/// Owned by its parent, or by the tooltip that it is given to.
///
/// @code
/// tooltip->SetAdvancedWidget(new Vela::UiToolkit::SampleInnerTooltip);
/// @endcode
class UI_BASE_EXPORT SampleInnerTooltip : public QWidget {
  Q_OBJECT

public:
  /// Hidden until it is shown beside something.
  explicit SampleInnerTooltip(QWidget* parent = nullptr);
  ~SampleInnerTooltip() override;

protected:
  /// Takes the picture for the pixel ratio of the screen it is shown on.
  void showEvent(QShowEvent* event) override;

private:
  void loadPicture();

  QLabel* m_picture = nullptr;
};

} // namespace Vela::UiToolkit
