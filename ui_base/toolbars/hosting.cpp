// SPDX-License-Identifier: MIT
#include "hosting.h"

#include "tool_button_with_widget_menu_p.h"

#include <ui_base/commands/flyout_command.h>
#include <ui_base/core/dying.h>
#include <ui_base/popups/popup_window.h>

#include <QEvent>
#include <QHash>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

namespace {

using Registry = QHash<const QWidget*, std::weak_ptr<Hosting>>;

Registry& registry() {
  static Registry hostings;
  return hostings;
}

QString nameOf(const QObject* object) {
  if (!object)
    return {};
  return object->objectName().isEmpty() ? QString::fromLatin1(object->metaObject()->className())
                                        : object->objectName();
}

bool isChosen(const ToolButtonWithWidgetMenu& button) {
  return button.MenuPhase() != MenuState::Closed || button.ClickedHandlerRequested();
}

} // namespace

QList<HostingInfo> hostedWidgets() { return Hosting::all(); }

// --- which there are

std::shared_ptr<Hosting> Hosting::of(QWidget& widget) {
  std::weak_ptr<Hosting>& known = registry()[&widget];
  std::shared_ptr<Hosting> hosting = known.lock();
  if (hosting && hosting->widget() == &widget)
    return hosting;
  hosting.reset(new Hosting(widget)); // in place of that of a widget that has died
  known = hosting;
  return hosting;
}

QList<HostingInfo> Hosting::all() {
  QList<HostingInfo> infos;
  for (const std::weak_ptr<Hosting>& known : std::as_const(registry())) {
    const std::shared_ptr<Hosting> hosting = known.lock();
    if (hosting && hosting->widget())
      infos.append(hosting->info());
  }
  return infos;
}

Hosting::Hosting(QWidget& widget) : m_widget(&widget) {
  widget.installEventFilter(this);
  // Guarded pointers to a dying widget are null only in the end.
  connect(&widget, &QObject::destroyed, this, [this] { widgetDies(); });
}

// First of all who have to do with it: those who are told next may ask any button to show it.
void Hosting::widgetDies() {
  m_widget.clear();
  for (const auto& known : std::as_const(m_buttons)) {
    if (const ToolButtonWithWidgetMenu* const button = known)
      button->own()->menu.clear();
  }
}

Hosting::~Hosting() {
  registry().removeIf([](const Registry::iterator& known) { return known.value().expired(); });
}

HostingInfo Hosting::info() const {
  HostingInfo info;
  info.widget = nameOf(m_widget);
  info.home = nameOf(m_window ? m_home.data() : m_widget->parentWidget());
  info.window = nameOf(m_widget->window());
  info.buttons = int(m_buttons.size());
  const ToolButtonWithWidgetMenu* const button = turn();
  if (!button)
    return info;
  info.turn = nameOf(button);
  info.controller = nameOf(button->ExtendController());
  info.phase = button->MenuPhase();
  if (const FlyoutCommand* const worked = command(); worked && worked->isActive())
    info.command = worked->commandId();
  return info;
}

FlyoutCommand* Hosting::command() const {
  for (const auto& known : m_buttons) {
    const ToolButtonWithWidgetMenu* const button = known;
    auto* const command = button ? qobject_cast<FlyoutCommand*>(button->Action()) : nullptr;
    if (command && command->simpleFlyout() == m_widget)
      return command;
  }
  return nullptr;
}

// --- whose turn it is

void Hosting::join(ToolButtonWithWidgetMenu& button) {
  m_buttons.append(LivePointer<ToolButtonWithWidgetMenu>(&button));
}

void Hosting::leave(ToolButtonWithWidgetMenu& button) {
  m_buttons.removeIf([&button](const auto& known) { return known.isNull() || known.data() == &button; });
  if (m_turn.data() == &button)
    m_turn.clear();
  if (m_buttons.isEmpty() || (m_window && m_window.data() == button.GetArrowedWindow()))
    goHome();
}

ToolButtonWithWidgetMenu* Hosting::turn() const { return m_turn; }

ToolButtonWithWidgetMenu* Hosting::next() const {
  if (ToolButtonWithWidgetMenu* const chosen = m_turn; chosen && isChosen(*chosen))
    return chosen;
  ToolButtonWithWidgetMenu* first = nullptr;
  for (const auto& known : m_buttons) {
    ToolButtonWithWidgetMenu* const button = known;
    if (!button)
      continue;
    const bool visible = button->own()->seenPlace() != nullptr;
    if (visible && button->window()->isActiveWindow())
      return button;
    if (!first || (visible && !first->own()->seenPlace()))
      first = button;
  }
  return first;
}

bool Hosting::take(ToolButtonWithWidgetMenu& button) {
  if (!m_widget || isDying(*m_widget))
    return false;
  const QPointer<ToolButtonWithWidgetMenu> taker(&button);
  const auto isShowing = [](const ToolButtonWithWidgetMenu* each) {
    return each && each->MenuPhase() != MenuState::Closed;
  };
  if (m_turn.data() == &button)
    return true;
  if (isShowing(turn()))
    turn()->HideMenu();
  if (!taker || isShowing(turn()))
    return false;
  const auto known = std::find_if(m_buttons.begin(), m_buttons.end(),
                                  [&taker](const auto& each) { return each.data() == taker; });
  if (known == m_buttons.end())
    return false;
  m_turn = *known;
  std::rotate(m_buttons.begin(), known, known + 1);
  return true;
}

// --- where it stands

bool Hosting::isHostWindow(const QWidget* parent) const {
  return parent && std::any_of(m_buttons.cbegin(), m_buttons.cend(), [parent](const auto& known) {
           const ToolButtonWithWidgetMenu* const button = known;
           return button && button->GetArrowedWindow() == parent;
         });
}

void Hosting::noteHome() {
  m_home = m_widget->parentWidget();
  m_homeFlags = m_widget->windowFlags();
  disconnect(m_homeDeath);
  // The window keeps the widget from dying with its parent.
  if (m_home)
    m_homeDeath = connect(m_home, &QObject::destroyed, this, [this] { homeDies(); });
}

// Those who hear that it closes still find it alive.
void Hosting::homeDies() {
  m_home.clear();
  const QPointer<QWidget> widget(m_widget);
  if (ToolButtonWithWidgetMenu* const button = m_turn; button && button->MenuPhase() != MenuState::Closed)
    button->HideMenu();
  const QWidget* const parent = widget ? widget->parentWidget() : nullptr;
  if (!parent || qobject_cast<const ArrowedWindow*>(parent))
    delete widget;
}

QWidget* Hosting::shownPopup() const {
  const ToolButtonWithWidgetMenu* const button = m_turn;
  return button && button->MenuPhase() != MenuState::Closed ? button->own()->popup() : nullptr;
}

// What is in sight is hidden first: those who hear of it may have another button show the widget.
void Hosting::standIn(ArrowedWindow& window) {
  if (!m_widget || m_widget->parentWidget() == &window)
    return;
  const QPointer<ArrowedWindow> host(&window);
  m_widget->hide();
  if (host)
    host->hide();
  const QWidget* const shown = shownPopup();
  if (!m_widget || !host || (shown && shown != host))
    return;
  if (!m_window)
    noteHome();
  m_window = host.data();
  host->AttachWidget(m_widget);
}

void Hosting::windowDies(const QObject* window) {
  if (m_window.remains() == window)
    goHome();
}

void Hosting::goHome() {
  // What is dying is no longer in the focus chain, and cannot be given another parent, nor be one.
  if (!m_window.remains() || !m_widget || isDying(*m_widget) || (m_home && isDying(*m_home->window())))
    return;
  const QPointer<QWidget> widget(m_widget);
  widget->hide();
  if (ArrowedWindow* const window = widget ? m_window.data() : nullptr)
    window->hide();
  const QWidget* const shown = shownPopup();
  if (!widget || !m_window.remains() || (shown && shown != widget))
    return;
  const LivePointer<ArrowedWindow> window = std::exchange(m_window, {});
  const QPointer<QWidget> home = m_home;
  const Qt::WindowFlags flags = m_homeFlags;
  disconnect(m_homeDeath);
  if (window && widget->parentWidget() == window)
    window->DetachWidget();
  if (auto* const flyout = qobject_cast<FlyoutBase*>(widget.data()))
    flyout->SetSizeLimit({QWIDGETSIZE_MAX, QWIDGETSIZE_MAX});
  if (widget && (widget->parentWidget() != home || widget->windowFlags() != flags))
    widget->setParent(home, flags);
}

// Given another parent by somebody else, it is at home there.
void Hosting::onParentChange() {
  if (!m_window.remains() || isHostWindow(m_widget->parentWidget()))
    return;
  m_window.clear();
  disconnect(m_homeDeath);
  if (ToolButtonWithWidgetMenu* const button = m_turn; button && button->MenuPhase() != MenuState::Closed)
    button->HideMenu();
}

bool Hosting::eventFilter(QObject* watched, QEvent* event) {
  ToolButtonWithWidgetMenu* const button = m_turn;
  const bool shown = button && button->MenuPhase() != MenuState::Closed;
  switch (watched == m_widget ? event->type() : QEvent::None) {
  case QEvent::ParentAboutToChange:
    leaveFocus(*m_widget);
    break;
  case QEvent::ParentChange:
    onParentChange();
    break;
  case QEvent::ShowToParent: // by itself, as by its command
    if (shown)
      button->own()->state.beginReopening();
    else if (ToolButtonWithWidgetMenu* const opener = next())
      opener->own()->onPanelShown();
    break;
  case QEvent::Resize:
    if (shown)
      button->OnFlyoutResized();
    break;
  default:
    break;
  }
  return false;
}

} // namespace Vela::UiBase
