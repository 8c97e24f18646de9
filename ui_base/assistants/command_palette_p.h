// SPDX-License-Identifier: MIT
#pragma once

#include "command_palette.h"
#include "command_palette_model.h"
#include "command_usage.h"
#include "deferred_run.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPointer>

class QKeyEvent;

namespace Vela::UiBase {

class CommandPalettePrivate {
public:
  struct Offered {
    std::weak_ptr<CmdMgr> manager;
    EOffer offer;
  };

  explicit CommandPalettePrivate(CommandPalette& palette);

  /// Makes what is in it, when it opens for the first time.
  void build();
  void applyStyles();
  void place();
  QList<std::shared_ptr<CmdMgr>> managersToOffer() const;
  void search();
  void showNothingFound();
  /// Runs the command of a row, or offers and takes the ways out.
  void choose(const QModelIndex& index);
  /// A key that was typed into the field. @return whether it is used up.
  bool handleKey(const QKeyEvent& key);
  void goBack();
  /// Closes it when something else in its window has taken the focus.
  void closeIfLeft();

  CommandPalette& q;
  CommandPaletteModel model;
  CommandUsage usage;
  QList<Offered> managers;
  QPointer<QWidget> focusBefore;
  QPointer<DeferredRun> awaited;
  // Children of the palette.
  QAction* openAction;
  QLineEdit* field = nullptr;
  QListView* list = nullptr;
  QLabel* nothing = nullptr;

private:
  void retranslate();
  void run(const std::shared_ptr<CommandBase>& command);
  void offerWaysOut(int row, CommandBase& command, const CmdMgr& manager);
  void take(const WayOut& way, const std::shared_ptr<CommandBase>& command,
            const std::shared_ptr<CmdMgr>& manager);
  void await(const std::shared_ptr<CommandBase>& command);
  void choosePage(int direction);
  void chooseRow(int row);
};

} // namespace Vela::UiBase
