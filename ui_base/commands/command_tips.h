// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QHelpEvent;
class QMenu;
class QToolButton;

namespace Vela::UiBase {

/// Lets tooltips of disabled commands say why: gives tooltip objects the reason, and shows it in menus and on
/// tool buttons of Qt itself.
class CommandTips : public QObject {
  Q_OBJECT

public:
  /// Begins, when there is an application object; called as soon as there is a command.
  static void start();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  using QObject::QObject;

  static bool explainEntry(QMenu& menu, const QHelpEvent& event);
  static bool explainButton(QToolButton& button, const QHelpEvent& event);
};

} // namespace Vela::UiBase
