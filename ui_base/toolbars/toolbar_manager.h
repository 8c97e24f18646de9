// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/dynamic_command_group_state_protocol.h>
#include <ui_base/ui_base_export.h>

#include <QObject>
#include <QString>

#include <memory>

namespace Vela::UiBase {

class CommandBase;
class CommandGroup;
class ToolBar;
class ToolbarManagerPrivate;

/// Keeps a row of toolbars after a main toolbar, one for each dynamic group of commands: shown while its
/// group is in use. A separator stands between the main toolbar and the row.
///
/// It listens to whoever announces that groups begin and end. A burst of announcements is applied once, 200
/// ms after the last of them; the last one of each group counts. The row follows the main toolbar: where it
/// stands, whether it is enabled and whether it is shown. In right-to-left layouts it goes to the left.
///
/// The main toolbar and the groups are not owned and may die at any time. The manager owns the toolbars and
/// the separator that it makes; they are children of the main toolbar's parent. Main thread only, but groups
/// may be announced on any thread, as long as the group lives while it is announced.
///
/// @code
/// auto* toolbars = new Vela::UiBase::ToolbarManager(mainToolbar);
/// toolbars->addDynamicCommandGroup(selectionGroup);
/// selection->setDelegate(toolbars);   // a Delegator<DynamicCommandGroupStateProtocol>
/// @endcode
class UI_BASE_EXPORT ToolbarManager : public QObject, public DynamicCommandGroupStateProtocol {
  Q_OBJECT

public:
  /// The gap between the main toolbar and the separator, and between that and the first toolbar, in pixels.
  static constexpr int MAIN_SPACING = 10;
  /// The dynamic property of each dynamic toolbar that carries the identifier of its group, "CMDGROUP_PROP".
  static const QString COMMANDGROUP_PROPERTY;

  /// @param mainToolbar the toolbar that the row follows; without one no toolbars are made. The manager is a
  /// child of it.
  explicit ToolbarManager(ToolBar* mainToolbar);
  ~ToolbarManager() override;

  /// Makes the toolbar of a group, hidden until the group begins. Groups in it get toolbars of their own. The
  /// toolbar follows its group, and goes with it; a group that was empty, or to which another group was
  /// added, gets the toolbar when it begins. Null is ignored.
  void addDynamicCommandGroup(CommandGroup* group);
  /// Removes a command from the dynamic toolbars; of a group its toolbar and those of the groups in it. What
  /// was removed does not come back before it is added again.
  void removeDynamicCommand(CommandBase* command);
  /// Whether a command with this identifier has a button in one of the dynamic toolbars.
  bool findDynamicCommand(const QString& id);

  /// How long announcements are gathered, in ms; 200 unless set.
  void setGatheringTime(int milliseconds);

  /// From any thread.
  void commandGroupBegan(CommandGroup* group) override;
  void commandGroupEnded(CommandGroup* group) override;

protected:
  /// Takes the private object over.
  ToolbarManager(ToolbarManagerPrivate& state, ToolBar* mainToolbar);

  bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
  void onActionTimerTimeOut();

private:
  void initialize(ToolBar* mainToolbar);
  void follow(CommandGroup& group);
  void removeToolbar(const QString& groupId);
  ToolBar* getToolbar(CommandGroup& group);
  ToolBar* findDynamicToolbar(const QString& groupId) const;
  void placeRow();
  void setToolbarVisible(ToolBar* toolbar, bool visible);
  void setToolbarsVisible(bool visible);
  int visibleToolbarCount() const;
  void onCommandGroupStateChanged(CommandGroup* group, bool began);
  void applyState(CommandGroup& group, bool began);
  void forgetDeadGroups();

  const std::unique_ptr<ToolbarManagerPrivate> d;
};

} // namespace Vela::UiBase
