// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QWidget>

#include <memory>

namespace Vela::UiBase {

class CmdMgr;
class CommandInspectorPrivate;

/// A window for the developers of an application. Of what is under the mouse it tells the command, how it
/// stands, why and since when, where it is shown and by what it is placed. It lists the commands that cannot
/// be used, the last 200 changes of states, layers of contexts, tools, views, bars, menus and groups, and the
/// runs of commands, also over time. All of it can be copied as text, for a report.
///
/// Managers are held weakly; whatever is shown may die. While the window is closed it watches nothing:
/// changes count from when it was opened.
///
/// @code
/// auto* inspector = new CommandInspector(window);
/// inspector->addManager(controller);
/// connect(new QShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_F12, window), &QShortcut::activated, inspector,
///         &QWidget::show);
/// @endcode
class UI_BASE_EXPORT CommandInspector : public QWidget {
  Q_OBJECT

public:
  /// A tool window of its parent, hidden at first.
  explicit CommandInspector(QWidget* parent);
  ~CommandInspector() override;

  /// Null is ignored. @throws std::bad_weak_ptr when the manager is not shared.
  void addManager(CmdMgr* manager);
  /// What the window shows, for a report.
  QString report() const;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

private:
  const std::unique_ptr<CommandInspectorPrivate> d;
};

} // namespace Vela::UiBase
