// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QObject>
#include <QString>

#include <memory>

class QAbstractButton;
class QAction;
class QMainWindow;
class QMenu;

namespace Vela::UiBase {

class RCMenuManagerPrivate;

/// Opens pop-up menus directly under buttons of a main window. While its menu is open a button has another
/// style sheet; menus close when an entry is chosen, like any menu, when the button is disabled or hidden,
/// and, after a delay, when the mouse has left both button and menu. One that was opened by touch or keyboard
/// stays.
///
/// A click opens a button's menu and closes it again; on the keyboard Space, Enter and Down open it while the
/// button has the focus, and the mnemonic of its text. The manager owns neither buttons nor menus; either may
/// be deleted at any time. Main thread only.
///
/// @code
/// auto* manager = new Vela::UiBase::RCMenuManager(window, 2, true, window);
/// button->setProperty(qPrintable(RCMenuManager::BUTTON_ALTERNATE_STYLE),
///                     QStringLiteral("background-color: lightblue"));
/// manager->AddButtonMenuLinkage(button, menu);
/// manager->Start();
/// @endcode
class UI_BASE_EXPORT RCMenuManager : public QObject {
  Q_OBJECT

public:
  /// The dynamic property of a linked button with its normal style sheet. Linking sets it to the style sheet
  /// that the button has then, unless it is set already; it then follows the style sheets that the button
  /// gets.
  static const QString BUTTON_ORIGINAL_STYLE;
  /// The dynamic property with the style sheet shown while the menu is open. A button without it keeps its
  /// look.
  static const QString BUTTON_ALTERNATE_STYLE;

  /// @param mainWindow moving, resizing or hiding it closes the menus; not owned, may be null.
  /// @param menuGap pixels between a button's bottom edge and its menu; its top edge when the menu has only
  /// room above.
  /// @param autoHide whether menus close by themselves when the pointer has left.
  RCMenuManager(QMainWindow* mainWindow, int menuGap, bool autoHide, QObject* parent = nullptr);
  /// Stops.
  ~RCMenuManager() override;

  /// Gives the button this menu, in place of another; a menu that another button has changes its button. Null
  /// is ignored. The menu becomes a pop-up window.
  void AddButtonMenuLinkage(QAbstractButton* button, QMenu* menu);

  /// The first linked button whose text equals `text`; null when there is none.
  QAbstractButton* FindButton(const QString& text) const;
  /// The menu of a linked button; null when it has none.
  QMenu* GetMenu(QAbstractButton* button) const;

  /// How long the pointer may be outside before a menu closes, in milliseconds.
  int HideInterval() const;
  /// See HideInterval().
  void SetHideInterval(int milliseconds);

  /// Links buttons and menus, and unlinks them with the menus closed.
  void Start();
  /// Ends what Start() began; open menus close.
  void Stop();
  /// Whether Start() was called, and Stop() not since.
  bool IsStarted() const;
  /// What Start() and Stop() do for all pairs: gives each button its menu, or takes it back.
  void LinkButtonMenu(bool link);

  /// Opens the menu of a linked button, or closes it. A disabled or hidden button opens none.
  void OpenMenu(QAbstractButton* button);
  /// Closes the menu of a button, if it is open.
  void CloseMenu(QAbstractButton* button);

  bool eventFilter(QObject* watched, QEvent* event) override;

protected:
  /// Takes the private object over.
  RCMenuManager(RCMenuManagerPrivate& state, QMainWindow* mainWindow, int menuGap, bool autoHide,
                QObject* parent);

  /// Called once by each constructor.
  void Initialize();

private Q_SLOTS:
  void OnMenuHideTimerTimeOut();
  void OnMenuActionTriggered();

private:
  const std::unique_ptr<RCMenuManagerPrivate> d;
};

} // namespace Vela::UiBase
