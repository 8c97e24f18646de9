// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/live_pointer.h>
#include <ui_base/toolbars/hosting_info.h>

#include <QList>
#include <QMetaObject>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <memory>

namespace Vela::UiBase {

class ArrowedWindow;
class FlyoutCommand;
class ToolButtonWithWidgetMenu;

/// A widget that buttons show: where it is at home, the window it stands in, and the button whose turn it is.
///
/// There is one for each widget, shared by the buttons whose menu the widget is. It is the button's turn that
/// was clicked, from before its action fires; without a click that of the button used last that can be seen
/// in the active window, else of the first that can be seen. Only that button shows and hides the widget.
///
/// A widget with a parent dies with that parent also while it stands elsewhere; one without is never deleted.
/// Who gives it another parent meanwhile gives it another home. The last button that lets go of it, or the
/// window it stands in when it dies, give it back home, hidden, with the window flags it had.
class Hosting : public QObject {
  Q_OBJECT

public:
  /// The one of a widget, made when there is none yet.
  static std::shared_ptr<Hosting> of(QWidget& widget);
  /// All flyouts that are shown by a button now.
  static QList<HostingInfo> all();
  ~Hosting() override;

  /// The flyout; null once it is dead.
  QWidget* widget() const { return m_widget; }
  /// Who shows it, for debuggers.
  HostingInfo info() const;

  /// One more button shows the flyout.
  void join(ToolButtonWithWidgetMenu& button);
  /// Ends nothing: the button has closed its menu.
  void leave(ToolButtonWithWidgetMenu& button);

  /// The button whose turn it is, and which may show the widget; else null.
  ToolButtonWithWidgetMenu* turn() const;
  /// The button that would open the widget now if nobody clicked one.
  ToolButtonWithWidgetMenu* next() const;
  /// Makes it the turn of a button. The one that shows the widget hides it first.
  /// @return whether it is; not while another one is still hiding the widget, or while that is dying.
  bool take(ToolButtonWithWidgetMenu& button);

  /// The command that is worked with the widget, as far as a button tells; null for none.
  FlyoutCommand* command() const;

  /// Puts the widget into a window, hidden, unless a button shows it elsewhere.
  void standIn(ArrowedWindow& window);
  /// The flyout goes back where it stood before.
  void goHome();
  /// Called when a window that the widget stands in is being destroyed.
  void windowDies(const QObject* window);

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  explicit Hosting(QWidget& widget);

  /// What is placed and shown by the button that shows the widget now, or null.
  QWidget* shownPopup() const;
  bool isHostWindow(const QWidget* parent) const;
  void noteHome();
  void homeDies();
  void widgetDies();
  void onParentChange();

  QPointer<QWidget> m_widget;
  QPointer<QWidget> m_home;
  Qt::WindowFlags m_homeFlags;
  QMetaObject::Connection m_homeDeath;
  LivePointer<ArrowedWindow> m_window;                    // it stands in
  QList<LivePointer<ToolButtonWithWidgetMenu>> m_buttons; // those used last come first
  LivePointer<ToolButtonWithWidgetMenu> m_turn;
};

} // namespace Vela::UiBase
