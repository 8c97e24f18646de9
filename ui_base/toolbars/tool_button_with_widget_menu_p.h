// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrowed_window.h>
#include <ui_base/toolbars/hosting.h>
#include <ui_base/toolbars/panel_session.h>
#include <ui_base/toolbars/tool_button_with_menu_p.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>

#include <QTimer>

namespace Vela::UiBase {

class ToolButtonWithButtonMenu;

/// The state of a ToolButtonWithWidgetMenu, for subclasses that add to it.
class UI_BASE_EXPORT ToolButtonWithWidgetMenuPrivate : public ToolButtonWithMenuPrivate {
public:
  ToolButtonWithWidgetMenuPrivate();
  ~ToolButtonWithWidgetMenuPrivate() override;

  QWidget* popup() const override;
  QWidget* controller() const override;
  bool ownsPopup() const override;
  bool beginShowing(bool opens) override;
  void endShowing() override;
  void endUnopenedFlyout() override;

  /// The window, but not one that is being destroyed.
  ArrowedWindow* liveWindow() const;
  FlyoutBase* flyout() const;
  ToolButtonWithButtonMenu* controllerMenu() const;
  /// Whether another button shows the menu now.
  bool isShownByAnother() const;

  void ensureWindow();
  void applyWindowLooks();
  /// Puts the window where it can lie over everything around the button.
  void followLayer();
  void takeMenu(QWidget& widget);
  /// Lets go of the menu, which goes home if no other button has it.
  void releaseMenu();
  void connectMenu(QWidget& widget);
  void connectFlyout(FlyoutBase& panel);
  /// Ends what connectMenu() made, and nothing that an application has made.
  void disconnectMenu();
  /// Has the menu, and the button, ask the controller to be shown.
  void followRequests();
  /// Shows the menu, through the controller that is there for that.
  void requestMenu();
  /// The panel was shown by itself, as by its command.
  void onPanelShown();
  void updatePartialBackground();
  void movePopup() override;
  /// Has a flyout ask for no more than leaves the window this size.
  void fitFlyout(const QSize& windowSize);
  QPoint placeWindow();

  LivePointer<ArrowedWindow> window;
  SArrowParam arrow;
  bool autoDecideArrow = false;
  QPointer<QWidget> extendController;

  bool arrowed = true;
  std::shared_ptr<Hosting> hosting; // of the menu; null without one
  PanelSession session;
  QTimer placing; // once it is done with being laid out
  QList<QMetaObject::Connection> menuConnections;
  QList<QMetaObject::Connection> requestConnections;
  QMetaObject::Connection windowDeath;
  QRect partialBackground; // in the menu
  QColor partialColor;
};

} // namespace Vela::UiBase
