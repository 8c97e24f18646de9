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

class QKeyEvent;

namespace Vela::UiBase {

class ATooltipObject;

/// The one place that knows all tooltips and the comings and goings of views.
///
/// Of a group of tooltips one is shown at a time. A group may have a layer, the widget on which its tooltips
/// are shown while it is in the window of their widget; else they are shown on that window. Escape closes
/// what is up, and F1 is offered to its content. A tooltip is taken down when its widget moves, as by
/// scrolling, or a modal window covers it; and when a view disappears, also Qt's own.
///
/// Tooltip objects register themselves; none is owned. It is never destroyed, so that static tooltip objects
/// may go at any time; main thread only.
///
/// @code
/// TooltipManager& tooltips = TooltipManager::GetInstance();
/// tooltips.SetShowNextAtOnce(QStringLiteral("toolbar"), true);
/// connect(&tooltips, &TooltipManager::HelpRequested, m_help, &HelpWindow::open);
/// @endcode
class UI_BASE_EXPORT TooltipManager : public QObject {
  Q_OBJECT

public:
  /// The manager of the process.
  static TooltipManager& GetInstance();

  /// Takes a tooltip into a group; out of the one it was in. Null is ignored.
  void AddTooltip(ATooltipObject* tooltip, const QString& group);
  /// Called by a tooltip's destructor.
  void RemoveTooltip(ATooltipObject* tooltip);

  /// The widget to show the tooltip on: the layer of its group if that is in the window of what the tooltip
  /// stands beside or a window itself, else that window, else the active one. Null when there is none of
  /// them, or the tooltip is not registered.
  QWidget* getTooltipLayer(ATooltipObject* tooltip) const;
  /// Null takes the layer of the group away. Not owned; may be deleted at any time.
  void SetTooltipLayer(const QString& group, QWidget* layer);

  /// Hides every tooltip of the group but this one, which may be null.
  void HideAllTooltipsInGroupExcept(ATooltipObject* tooltip, const QString& group);
  /// Hides the tooltips of all groups.
  void HideAllTooltips();
  /// Whether a tooltip of the group is shown.
  bool IsTooltipShown(const QString& group) const;

  /// Whether tooltips of the group appear without delay while another one of it is up; off at first.
  void SetShowNextAtOnce(const QString& group, bool atOnce);
  /// Whether a further tooltip of the group comes without delay while one is shown.
  bool ShowNextAtOnce(const QString& group) const;

  /// The times for tooltips that are made from now on, unless they are given their own.
  const TooltipTimes& Times() const;
  /// See Times().
  void SetTimes(const TooltipTimes& times);

public Q_SLOTS:
  /// Told by view controllers: a view has appeared, or is about to disappear.
  void onViewVisibilityChange(bool visible);

Q_SIGNALS:
  /// A view has appeared or disappeared.
  void viewVisibilityChanged(bool visible);
  /// The user asked for the help from any tooltip: its page index, or -1, and its keyword.
  void HelpRequested(int index, const QString& keyword);

protected:
  /// Watches keyboard, movements and modal windows while a tooltip is up.
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  friend class ATooltipObject;
  friend class ATooltipObjectPrivate;

  TooltipManager() = default;
  void onShown(ATooltipObject* tooltip);
  void onHidden(ATooltipObject* tooltip);
  void watchNoMore();
  bool handleKey(QKeyEvent& key);
  bool handleHelpKey(QKeyEvent& key);
  void hideTooltipsOf(const QWidget& widget, bool withWindow);

  QHash<const ATooltipObject*, QString> m_groups;
  QHash<QString, QPointer<QWidget>> m_layers;
  QSet<QString> m_atOnce;
  QList<ATooltipObject*> m_shown; // the latest last
  TooltipTimes m_times;
  bool m_helpKeyTaken = false;
};

} // namespace Vela::UiBase
