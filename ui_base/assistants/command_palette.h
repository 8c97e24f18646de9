// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QWidget>

#include <memory>

class QAction;

namespace Vela::UiBase {

class CmdMgr;
class CommandBase;
class CommandPalettePrivate;
class CommandUsage;

/// When the commands of a manager are offered.
enum EOffer : int {
  OfferAlways,
  /// While the view of the manager, a controller, is visible: commands of a page that is not shown would
  /// change it behind the user's back.
  OfferInSight,
};

/// Finds and runs any command by typing a part of its name: a field in the middle of its parent with a list
/// of what answers, the best first.
///
/// It goes by beginnings of words ("sm" finds "Smooth Mesh"), forgives a typing error and lacking accents,
/// also looks at groups and identifiers, and offers what the user runs often before the rest. A command that
/// cannot be used stands in the list with the reason. Return on it offers the ways out there are: going to
/// the open panel or cancelling the run that holds it up, or running it as soon as it is available.
///
/// Keyboard: arrow keys, Page Up and Down choose, Return runs, Escape goes back and closes; no other key
/// reaches anybody meanwhile. It closes when something else is pressed or takes the focus. The focus goes
/// back where it was before the command runs.
///
/// Belongs to its parent and is hidden at first. Managers are held weakly. For the main thread.
///
/// @code
/// auto* palette = new CommandPalette(window);
/// palette->addManager(controller);
/// palette->openAction()->setShortcut(QKeySequence("Ctrl+K"));   // in the window, whatever has the focus
/// palette->usage().restore(settings.value("usage").toMap());
/// @endcode
class UI_BASE_EXPORT CommandPalette : public QWidget {
  Q_OBJECT

public:
  /// @param parent over the middle of which it opens; without one it never does.
  explicit CommandPalette(QWidget* parent);
  ~CommandPalette() override;

  /// Offers the commands of a manager too. Null is ignored.
  /// @throws std::bad_weak_ptr when the manager is not shared.
  void addManager(CmdMgr* manager, EOffer offer = OfferAlways);
  /// Its commands are no longer offered; a manager that dies is removed by itself.
  void removeManager(const CmdMgr* manager);

  /// Opens the palette. Stands in the parent, so that its shortcut works in the whole window; without one at
  /// first.
  QAction* openAction() const;
  /// What is offered first; of its own at first, kept nowhere.
  CommandUsage& usage() const;
  /// The command that runs as soon as it is available, as the user chose; or null.
  CommandBase* awaitedCommand() const;

  QSize sizeHint() const override;

public Q_SLOTS:
  /// Opens it with an empty field. Nothing when it is open.
  void open();
  /// Closes it and gives the focus back. Nothing when it is not open.
  void dismiss();

protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  const std::unique_ptr<CommandPalettePrivate> d;
};

} // namespace Vela::UiBase
