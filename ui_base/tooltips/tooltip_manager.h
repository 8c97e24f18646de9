// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tooltips/tooltip_types.h>
#include <ui_base/ui_base_export.h>

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QWidget>

namespace Vela::UiBase {

class ATooltipObject;

/// The one place that knows all tooltips and the comings and goings of views.
///
/// Of a group of tooltips one is shown at a time. A group may have a layer, the widget on which its tooltips
/// are shown; without one they are shown on the window of their widget. Escape closes what is up, and F1 is
/// offered to its content. A tooltip that is up when a view disappears is taken down, also Qt's own.
///
/// Tooltip objects register themselves; none is owned. Lives from its first use to the end of the process;
/// main thread only.
///
/// @code
/// TooltipManager& tooltips = TooltipManager::GetInstance();
/// tooltips.SetShowNextAtOnce(QStringLiteral("toolbar"), true);
/// connect(&tooltips, &TooltipManager::HelpRequested, m_help, &HelpWindow::open);
/// @endcode
class UI_BASE_EXPORT TooltipManager : public QObject {
  Q_OBJECT

public:
  static TooltipManager& GetInstance();

  /// Takes a tooltip into a group; out of the one it was in. Null is ignored.
  void AddTooltip(ATooltipObject* tooltip, const QString& group);
  void RemoveTooltip(ATooltipObject* tooltip);

  /// The widget to show the tooltip on: the layer of its group, else the window of what it stands beside,
  /// else the active window. Null when there is none of them, or the tooltip is not registered.
  QWidget* getTooltipLayer(ATooltipObject* tooltip) const;
  /// Null takes the layer of the group away. Not owned; may be deleted at any time.
  void SetTooltipLayer(const QString& group, QWidget* layer);

  /// Hides every tooltip of the group but this one, which may be null.
  void HideAllTooltipsInGroupExcept(ATooltipObject* tooltip, const QString& group);
  void HideAllTooltips();
  bool IsTooltipShown(const QString& group) const;

  /// Whether tooltips of the group appear without delay while another one of it is up; off at first.
  void SetShowNextAtOnce(const QString& group, bool atOnce);
  bool ShowNextAtOnce(const QString& group) const;

  /// The times for tooltips that are made from now on, unless they are given their own.
  const TooltipTimes& Times() const;
  void SetTimes(const TooltipTimes& times);

public Q_SLOTS:
  /// Told by view controllers: a view has appeared, or is about to disappear.
  void onViewVisibilityChange(bool visible);

Q_SIGNALS:
  void viewVisibilityChanged(bool visible);
  /// The user asked for the help from any tooltip: its page index, or -1, and its keyword.
  void HelpRequested(int index, const QString& keyword);

protected:
  /// Watches the keyboard while a tooltip is up.
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  friend class ATooltipObject;
  friend class ATooltipObjectPrivate;

  TooltipManager() = default;
  void onShown(ATooltipObject* tooltip);
  void onHidden(ATooltipObject* tooltip);
  bool handleHelpKey(QEvent* event);

  QHash<const ATooltipObject*, QString> m_groups;
  QHash<QString, QPointer<QWidget>> m_layers;
  QSet<QString> m_atOnce;
  QList<ATooltipObject*> m_shown; // the latest last
  TooltipTimes m_times;
  bool m_helpKeyTaken = false;
};

} // namespace Vela::UiBase
