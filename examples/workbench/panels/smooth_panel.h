// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh_ops/smooth.h>

#include <QWidget>

class QCheckBox;
class QLabel;
class QSlider;
class QSpinBox;

namespace Vela::UiBase {
class FlyoutBase;
}

namespace Workbench {

/// How a mesh is to be smoothed, and whether to show it at once.
class SmoothPanel : public QWidget {
  Q_OBJECT

public:
  explicit SmoothPanel(QWidget* parent = nullptr);

  /// What is chosen, for a whole mesh.
  SmoothOptions options() const;
  bool isPreviewWanted() const;

Q_SIGNALS:
  /// Another value, or the preview is wanted or no longer wanted.
  void changed();
  /// Asks for the values at first; a flyout sends it when its button is pressed.
  void ResetValues();

private:
  void retranslate();
  void setStandardValues();

  QLabel* m_iterationsLabel;
  QLabel* m_strengthLabel;

  QSpinBox* m_iterations;
  QSlider* m_slider;
  QSpinBox* m_strength;
  QCheckBox* m_preview;
};

/// Makes the flyout for smoothing, with such a panel as main panel. Whoever hosts it takes it over; until
/// then it belongs to @p parent.
Vela::UiBase::FlyoutBase* makeSmoothFlyout(QWidget* parent);

} // namespace Workbench
