// SPDX-License-Identifier: MIT
#include "tool_button_fixture.h"

#include <ui_base/toolbars/action_panel.h>

#include <QApplication>
#include <QLabel>

#include <algorithm>
#include <functional>
#include <random>

using namespace Vela::UiBase;

namespace {

/// Windows with toolbars whose buttons share flyouts, plain panels and sub-toolbars, and a user and callbacks
/// that do anything with them at any time.
class World {
public:
  using Button = ToolButtonWithWidgetMenu;
  struct Deed {
    const char* name;
    bool inCallbacks; // what a callback may do to what calls it
    std::function<void()> act;
    int done = 0;
  };

  explicit World(unsigned seed) : m_random(seed) {
    m_root.resize(400, 300);
    m_view = new BaseView(&m_root);
    m_controller = new CmdsViewController(m_view);
    m_root.show();
    listDeeds();
    for (int i = 0; i < 40; ++i)
      build();
  }
  ~World() {
    m_armed = false;
    for (const QPointer<QWidget>& each : m_owned)
      delete each.data();
    Vela::Test::settle();
  }

  void step() {
    build();
    m_armed = m_callbacks && !one(3);
    Deed& deed = m_deeds[pick(int(m_deeds.size()))];
    ++deed.done;
    deed.act();
    if (!one(4))
      Vela::Test::settle();
  }
  void settle() {
    m_armed = false;
    Vela::Test::settle();
  }
  QStringList neverDone() const {
    QStringList names;
    for (const Deed& deed : m_deeds) {
      if (deed.done == 0)
        names += deed.name;
    }
    return names;
  }
  QString fault() const;

private:
  int pick(int count) { return count > 0 ? int(m_random() % unsigned(count)) : 0; }
  bool one(int of) { return pick(of) == 0; }
  template <class T>
  T* any(const QList<QPointer<T>>& all) {
    QList<T*> living;
    for (const QPointer<T>& each : all) {
      if (each)
        living.append(each);
    }
    return living.isEmpty() ? nullptr : living[pick(int(living.size()))];
  }
  template <class T, class Do>
  void with(QList<QPointer<T>>& all, const Do& act) {
    all.removeIf([](const QPointer<T>& each) { return !each; });
    if (T* const chosen = any(all))
      act(*chosen);
  }

  // Called from every callback.
  void interfere() {
    if (!m_armed || m_depth >= 3 || one(3))
      return;
    Deed& deed = m_deeds[pick(int(m_deeds.size()))];
    if (!deed.inCallbacks)
      return;
    ++m_depth;
    ++deed.done;
    deed.act();
    --m_depth;
  }

  void build() {
    m_windows.removeIf([](const auto& each) { return !each; });
    m_bars.removeIf([](const auto& each) { return !each; });
    m_buttons.removeIf([](const auto& each) { return !each; });
    m_panels.removeIf([](const auto& each) { return !each; });
    if (m_windows.size() < 3)
      buildWindow();
    else if (m_bars.size() < 7)
      buildBar();
    else if (m_panels.size() < 5)
      buildPanel();
    else if (m_buttons.size() < 14)
      buildButton();
  }
  void buildWindow() {
    auto* const window = new QWidget;
    window->resize(120 + pick(800), 60 + pick(600));
    window->show();
    m_windows.append(window);
    m_owned.emplace_back(window);
  }
  void buildBar() {
    with(m_windows, [this](QWidget& window) {
      ToolBar* const bar = one(2) ? new ActionPanel(&window)
                                  : new ToolBar(&window, one(2) ? Qt::TopToolBarArea : Qt::LeftToolBarArea);
      bar->SetAnimationDuration(0);
      QObject::connect(bar, &ToolBar::ButtonMenuVisibilityChange, &m_root, [this] { interfere(); });
      QObject::connect(bar, &ToolBar::ToolButtonClicked, &m_root, [this] { interfere(); });
      bar->ShowMe();
      m_bars.append(bar);
    });
  }
  void buildPanel() {
    QWidget* const home = one(3) ? nullptr : &m_root;
    QWidget* panel = nullptr;
    QAction* action = nullptr;
    if (one(3)) {
      panel = new QSpinBox(home);
    } else {
      auto* const flyout = new FlyoutBase("flyout", new QSpinBox, nullptr, true, true, true, true, home);
      QObject::connect(flyout, &FlyoutBase::CloseFlyout, &m_root, [this] { interfere(); });
      QObject::connect(flyout, &FlyoutBase::FlyoutResized, &m_root, [this] { interfere(); });
      panel = flyout;
    }
    panel->hide();
    if (!home)
      m_owned.emplace_back(panel);
    if (one(3)) {
      action = new QAction("panel", &m_root);
    } else {
      auto* const command = new PanelCommand(panel, m_controller);
      command->addObserver(m_observer, false);
      m_commands.append(command);
      m_keptCommands.push_back(Taren::Objects::adoptShared<CommandBase>(command));
      action = command;
    }
    action->setCheckable(one(2));
    QObject::connect(action, &QAction::toggled, &m_root, [this] { interfere(); });
    QObject::connect(action, &QAction::triggered, &m_root, [this] { interfere(); });
    m_panels.append(panel);
    m_actions.insert(panel, action);
  }
  void buildButton() {
    with(m_bars, [this](ToolBar& bar) {
      QPointer<ToolBar> place(&bar);
      if (one(4)) {
        auto* const menu = new ToolBar(bar.parentWidget(), Qt::LeftToolBarArea);
        menu->SetHideOnClick(one(2));
        ToolButtonWithButtonMenu* const opener =
            bar.AddAction(nullptr, coloredIcon(Qt::red), menu, true, "menu");
        opener->setCheckable(one(2));
        opener->SetExtendMode(one(2));
        opener->SetClearSelectionOnHide(one(3));
        listen(*opener);
        m_openers.append(opener);
        place = menu;
      }
      with(m_panels, [&](QWidget& panel) {
        Button* const button = place->AddAction(m_actions.value(&panel), &panel);
        if (!button)
          return;
        listen(*button);
        m_buttons.append(button);
      });
    });
  }
  void listen(ToolButtonWithMenu& button) {
    QObject::connect(&button, &ToolButtonWithMenu::ButtonMenuVisibilityChange, &m_root,
                     [this, &button](ToolButton*, bool visible) {
                       m_shown[&button] += visible ? 1 : -1;
                       interfere();
                     });
    QObject::connect(&button, &QObject::destroyed, &m_root, [this, &button] { m_shown.remove(&button); });
    QObject::connect(&button, &QToolButton::toggled, &m_root, [this] { interfere(); });
  }

  void clickOn(QWidget& target) {
    QWidget* const window = target.window();
    if (!target.isVisible() || !window->windowHandle())
      return;
    const QPointer<QWindow> handle(window->windowHandle());
    const QPoint point = target.mapTo(window, target.rect().center());
    if (!window->rect().contains(point))
      return;
    QTest::mousePress(handle, Qt::LeftButton, {}, point);
    if (one(3))
      Vela::Test::settle();
    if (handle && window->rect().contains(point))
      QTest::mouseRelease(handle, Qt::LeftButton, {}, point);
  }
  void key(Qt::Key key) {
    if (QWidget* const window = QApplication::activeWindow(); window && window->windowHandle())
      QTest::keyClick(window->windowHandle(), key);
  }
  void listDeeds();

  std::mt19937 m_random;
  std::vector<Deed> m_deeds;
  std::vector<QPointer<QWidget>> m_owned;
  std::vector<std::shared_ptr<CommandBase>> m_keptCommands;
  std::shared_ptr<CommandObserver> m_observer = std::make_shared<CommandObserver>();
  QWidget m_root;
  BaseView* m_view = nullptr;
  CmdsViewController* m_controller = nullptr;
  QList<QPointer<QWidget>> m_windows;
  QList<QPointer<ToolBar>> m_bars;
  QList<QPointer<Button>> m_buttons;
  QList<QPointer<ToolButtonWithButtonMenu>> m_openers;
  QList<QPointer<QWidget>> m_panels;
  QHash<const QWidget*, QAction*> m_actions;
  QList<PanelCommand*> m_commands;
  QHash<const QObject*, int> m_shown;
  const bool m_callbacks = qEnvironmentVariableIsSet("VELA_WALK_CALLBACKS");
  bool m_armed = false;
  int m_depth = 0;
};

void World::listDeeds() {
  m_deeds = {
      {"build", false, [this] { build(); }},
      {"click a button", false, [this] { with(m_buttons, [this](Button& button) { clickOn(button); }); }},
      {"click an opener", false, [this] { with(m_openers, [this](QWidget& button) { clickOn(button); }); }},
      {"click a panel", false, [this] { with(m_panels, [this](QWidget& panel) { clickOn(panel); }); }},
      {"click a window", false, [this] { with(m_windows, [this](QWidget& window) { clickOn(window); }); }},
      {"escape", true, [this] { key(Qt::Key_Escape); }},
      {"space", true, [this] { key(Qt::Key_Space); }},
      {"activate", true, [this] { with(m_windows, [](QWidget& window) { window.activateWindow(); }); }},
      {"trigger", true,
       [this] {
         with(m_buttons, [](Button& button) { button.Action() ? button.Action()->trigger() : void(); });
       }},
      {"show a menu", true, [this] { with(m_buttons, [](Button& button) { button.ShowMenu(); }); }},
      {"hide a menu", true, [this] { with(m_buttons, [](Button& button) { button.HideMenu(); }); }},
      {"show a sub-toolbar", true,
       [this] { with(m_openers, [](ToolButtonWithMenu& button) { button.ShowMenu(); }); }},
      {"hide a sub-toolbar", true,
       [this] { with(m_openers, [](ToolButtonWithMenu& button) { button.HideMenu(); }); }},
      {"show a panel", true, [this] { with(m_panels, [](QWidget& panel) { panel.show(); }); }},
      {"hide a panel", true, [this] { with(m_panels, [](QWidget& panel) { panel.hide(); }); }},
      {"close a flyout", true,
       [this] {
         with(m_panels, [](QWidget& panel) {
           if (auto* const flyout = qobject_cast<FlyoutBase*>(&panel))
             flyout->CloseMe();
         });
       }},
      {"busy", true,
       [this] {
         with(m_panels, [this](QWidget& panel) {
           if (auto* const flyout = qobject_cast<FlyoutBase*>(&panel))
             flyout->SetBusy(one(2));
         });
       }},
      {"exit a command", true,
       [this] {
         if (!m_commands.isEmpty())
           m_commands[pick(int(m_commands.size()))]->onExitCommand();
       }},
      {"close all", true,
       [this] { with(m_bars, [](ToolBar& bar) { bar.HideAllButtonMenusExcept(false, nullptr); }); }},
      {"outside", true, [this] { with(m_bars, [](ToolBar& bar) { bar.OnMouseClickedOutside(); }); }},
      {"dismiss", true, [this] { with(m_bars, [](ToolBar& bar) { bar.DismissLeafMenu(); }); }},
      {"resize timer", true, [this] { with(m_bars, [](ToolBar& bar) { bar.OnResizeTimerTimeOut(); }); }},
      {"hide a bar", true, [this] { with(m_bars, [](ToolBar& bar) { bar.HideMe(false); }); }},
      {"show a bar", true, [this] { with(m_bars, [](ToolBar& bar) { bar.ShowMe(); }); }},
      {"slide a bar", true,
       [this] { with(m_bars, [this](ToolBar& bar) { one(2) ? bar.ShowAnimated() : bar.HideAnimated(); }); }},
      {"re-parent a panel", true,
       [this] {
         with(m_panels, [this](QWidget& panel) { panel.setParent(one(2) ? &m_root : any(m_windows)); });
       }},
      {"exchange a menu", true,
       [this] { with(m_buttons, [this](Button& button) { button.SetMenu(any(m_panels), !one(4)); }); }},
      {"extend mode", true,
       [this] { with(m_openers, [this](ToolButton& opener) { opener.SetExtendMode(one(2)); }); }},
      {"extend controller", true,
       [this] {
         with(m_buttons,
              [this](Button& button) { button.SetExtendController(one(2) ? nullptr : any(m_openers)); });
       }},
      {"enable", true, [this] { with(m_buttons, [this](Button& button) { button.setEnabled(one(2)); }); }},
      {"resize", true,
       [this] { with(m_windows, [this](QWidget& w) { w.resize(90 + pick(900), 40 + pick(600)); }); }},
      {"delete a panel", true, [this] { with(m_panels, [](QWidget& panel) { delete &panel; }); }},
      {"delete a button", true,
       [this] {
         with(m_buttons, [this](Button& button) {
           if (m_depth == 0)
             delete &button;
           else
             button.deleteLater();
         });
       }},
      {"delete a bar", true, [this] { with(m_bars, [](ToolBar& bar) { bar.deleteLater(); }); }},
      {"delete an arrowed window", true,
       [this] {
         with(m_buttons, [](Button& button) {
           if (button.GetArrowedWindow())
             button.GetArrowedWindow()->deleteLater();
         });
       }},
      {"delete a window", true,
       [this] {
         if (one(5))
           with(m_windows, [](QWidget& window) { window.deleteLater(); });
       }},
      {"settle", false, [this] { Vela::Test::settle(); }},
  };
}

/// What is wrong now that nothing is under way, or nothing.
QString World::fault() const {
  QHash<const QWidget*, int> shows;
  QHash<const ToolBar*, int> nests;
  for (const QPointer<Button>& button : m_buttons) {
    if (!button)
      continue;
    const MenuState::EPhase phase = button->MenuPhase();
    if (phase != MenuState::Closed && phase != MenuState::Open)
      return "a menu is neither open nor closed";
    const bool open = phase == MenuState::Open;
    if (m_shown.value(button) != (open ? 1 : 0))
      return "a menu was not announced once";
    if (button->ClickedHandlerRequested())
      return "a click is still being handled";
    const ToolBar* const bar = button->OwningToolBar();
    if (!open) {
      if (bar && bar->GetActiveButton() == button)
        return "a button is active without its menu";
      continue;
    }
    if (!button->GetMenu() || button->GetMenu()->isHidden())
      return "an open menu is hidden";
    if (++shows[button->GetMenu()] > 1)
      return "two buttons show one widget";
    if (bar && ++nests[bar->GetBaseToolBar()] > 1)
      return "two flyouts are open in a nest";
    if (bar && bar->GetActiveButton() != button)
      return "an open flyout's button is not the active one";
  }
  for (const QPointer<ToolButtonWithButtonMenu>& opener : m_openers) {
    if (!opener || !opener->IsInExtendMode())
      continue;
    const auto* const extended = qobject_cast<Button*>(opener->ExtendedButton());
    if (!extended || extended->MenuPhase() != MenuState::Open)
      return "a button stands in for one that shows nothing";
  }
  for (const QPointer<ToolBar>& bar : m_bars) {
    if (!bar)
      continue;
    const QList<ToolButton*> buttons = bar->Buttons();
    const bool locked =
        std::any_of(buttons.cbegin(), buttons.cend(), [](auto* each) { return each->IsLocked(); });
    const bool extended = std::any_of(m_openers.cbegin(), m_openers.cend(), [&bar](const auto& each) {
      return each && each->IsInExtendMode() && each->OwningToolBar() == bar;
    });
    if (locked && !extended)
      return "a button is locked for nothing";
  }
  int active = 0;
  for (const PanelCommand* const command : m_commands) {
    active += command->isActive() ? 1 : 0;
    const QWidget* const panel = command->simpleFlyout();
    const bool hosted = panel && std::any_of(m_buttons.cbegin(), m_buttons.cend(), [&](const auto& button) {
                          return button && button->Action() == command && button->GetMenu() == panel;
                        });
    if (command->isActive() && hosted && panel->isHidden())
      return "a command waits for a panel that is hidden";
  }
  if (m_observer->began - m_observer->ended != active)
    return "commands began and did not end";
  return {};
}

} // namespace

class ToolButtonFuzzTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void anythingGoesAtAnyTime();
};

// VELA_WALK_SEED repeats a walk, VELA_WALK_STEPS makes it longer, VELA_WALK_CALLBACKS has callbacks act too.
void ToolButtonFuzzTest::anythingGoesAtAnyTime() {
  bool given = false;
  unsigned seed = qEnvironmentVariable("VELA_WALK_SEED").toUInt(&given);
  if (!given)
    seed = 1; // the same walk each time, unless asked otherwise
  const int steps = std::max(600, qEnvironmentVariableIntValue("VELA_WALK_STEPS"));
  qInfo("VELA_WALK_SEED=%u", seed);
  World world(seed);
  for (int i = 0; i < steps; ++i) {
    world.step();
    if (i % 5 != 0)
      continue;
    world.settle();
    if (const QString fault = world.fault(); !fault.isEmpty())
      QFAIL(qPrintable(QString("%1, step %2, seed %3").arg(fault).arg(i).arg(seed)));
  }
  QCOMPARE(world.neverDone(), QStringList());
}

VELA_TEST_MAIN(ToolButtonFuzzTest)
#include "tool_button_fuzz_test.moc"
