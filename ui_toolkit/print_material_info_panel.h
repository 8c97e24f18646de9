// SPDX-License-Identifier: MIT
#pragma once

#include <qskrccommon/units.h>
#include <ui_base/ui_base_export.h>

#include <QList>
#include <QWidget>

#include <memory>
#include <optional>

class QAction;

namespace Vela::UiToolkit {

class PrintMaterialInfoPanelPrivate;

/// How much material a print takes: the volume of the model, of its supports, and of both together, in a unit
/// that the user chooses in the panel's context menu (with the Menu key too).
///
/// Owned by its parent. Main thread only: volumes computed elsewhere are handed over by a queued call.
///
/// @code
/// auto* panel = new Vela::UiToolkit::PrintMaterialInfoPanel(window);
/// panel->SetBusy(true);
/// connect(job, &VolumeJob::finished, panel, [panel](double model, double supports) {
///   panel->SetVolumes(model, supports); // in mm³
///   panel->SetBusy(false);
/// });
/// connect(panel, &PrintMaterialInfoPanel::VolumeUnitChanged, preferences, &Preferences::storeVolumeUnit);
/// @endcode
class UI_BASE_EXPORT PrintMaterialInfoPanel : public QWidget {
  Q_OBJECT

public:
  /// Without volumes.
  explicit PrintMaterialInfoPanel(QWidget* parent = nullptr);
  ~PrintMaterialInfoPanel() override;

  /// The volumes in cubic millimetres. One that is not known, or is not a finite number, is shown as not
  /// available; the combined volume then is neither.
  void SetVolumes(std::optional<double> model, std::optional<double> support);
  /// In cubic millimetres; nothing when it is not known.
  std::optional<double> ModelVolume() const;
  /// In cubic millimetres; nothing when it is not known.
  std::optional<double> SupportVolume() const;
  /// The sum, in cubic millimetres.
  std::optional<double> CombinedVolume() const;

  /// The unit that the volumes are shown in; cubic centimetres at first.
  Common::EVolumeUnit VolumeUnit() const;
  /// A number that is no unit is ignored.
  void SetVolumeUnit(Common::EVolumeUnit unit);
  /// The checkable actions that choose the unit, one for each, owned by the panel; for menus of one's own.
  QList<QAction*> VolumeUnitActions() const;

  /// Whether the volumes are being computed.
  bool IsBusy() const;

public Q_SLOTS:
  /// Whether volumes are being computed: the loader turns. The values stay as they are.
  void SetBusy(bool busy);

Q_SIGNALS:
  /// The panel was shown, or hidden: not when its window is minimised and restored.
  void Show();
  /// See Show().
  void Hide();
  /// By the user or by SetVolumeUnit().
  void VolumeUnitChanged(int unit);

protected:
  void changeEvent(QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  const std::unique_ptr<PrintMaterialInfoPanelPrivate> d;
};

} // namespace Vela::UiToolkit
