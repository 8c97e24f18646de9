// SPDX-License-Identifier: MIT
#include "bars_world.h"

#include <ui_base/toolbars/action_panel.h>
#include <ui_base/tooltips/tooltip_manager.h>

#include <utility>

using namespace Vela::UiBase;

/// What comes and goes calls back from the events of it.
class BarsWorld::Filter : public QObject {
public:
  explicit Filter(BarsWorld& world) : m_world(world) {}
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
      m_world.interfere();
    return false;
  }

private:
  BarsWorld& m_world;
};

class BarsWorld::Handler : public ToolButton::IToolButtonCallbackHandler {
public:
  explicit Handler(BarsWorld& world) : m_world(world) {}
  bool operator()(QAction* action) override {
    const QPointer<QAction> asked(action);
    m_world.interfere();
    return asked && asked->isEnabled();
  }

private:
  BarsWorld& m_world;
};

BarsWorld::BarsWorld(unsigned seed)
    : m_random(seed), m_filter(std::make_unique<Filter>(*this)), m_handler(std::make_unique<Handler>(*this)) {
  QHashSeed::setDeterministicGlobalSeed();
  constexpr int never = 600000; // ms
  TooltipManager::GetInstance().SetTimes({never, never, never, never, never});
  m_root.resize(400, 300);
  m_controller = new CmdsViewController(new BaseView(&m_root));
  m_root.show();
  m_windows.append(&m_root);
  for (auto deeds : {userDeeds(), menuDeeds(), barDeeds(), groupDeeds(), deadlyDeeds()})
    m_deeds.insert(m_deeds.end(), deeds.begin(), deeds.end());
  for (int i = 0; i < 60; ++i)
    build();
}

BarsWorld::~BarsWorld() {
  m_armed = false;
  for (QWidget* const each : m_root.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (!qobject_cast<BaseView*>(each))
      m_owned.append(each);
  }
  for (const QPointer<QWidget>& each : std::as_const(m_owned))
    delete each.data();
  Vela::Test::settle();
  TooltipManager::GetInstance().SetTimes({});
}

void BarsWorld::doNow(Deed& deed) {
  ++deed.done;
  deed.doneInCallbacks += m_depth > 0 ? 1 : 0;
  if (m_traced)
    qInfo("%*s%s", 2 * m_depth, "", deed.name);
  deed.act();
}

void BarsWorld::step() {
  for (const QPointer<QObject>& victim : std::exchange(m_doomed, {}))
    destroyNow(victim);
  build();
  m_armed = !one(3);
  doNow(m_deeds[unsigned(pick(int(m_deeds.size())))]);
  if (!one(4))
    Vela::Test::settle();
}

// Nobody does anything with what is half gone.
void BarsWorld::destroyNow(QObject* victim) {
  m_windows.removeIf([victim](const auto& each) { return each == victim; });
  m_panels.removeIf([victim](const auto& each) { return each == victim; });
  delete victim;
}

void BarsWorld::interfere() {
  if (!m_armed || m_depth >= 3 || one(3))
    return;
  Deed& deed = m_deeds[unsigned(pick(int(m_deeds.size())))];
  if (!deed.inCallbacks)
    return;
  ++m_depth;
  doNow(deed);
  --m_depth;
}

QStringList BarsWorld::neverDone() const {
  QStringList names;
  for (const Deed& deed : m_deeds) {
    if (deed.done == 0 || (deed.inCallbacks && deed.doneInCallbacks == 0))
      names += deed.name;
  }
  return names;
}

// --- building

void BarsWorld::build() {
  const auto isDead = [](const auto& each) { return !each; };
  m_windows.removeIf(isDead);
  m_panels.removeIf(isDead);
  m_owned.removeIf(isDead);
  if (m_windows.size() < 3)
    buildWindow();
  else if (all<ToolBar>().size() < 8)
    buildBar();
  else if (m_panels.size() < 5)
    buildPanel();
  else if (m_groups.size() < 4)
    buildGroup();
  else if (all<ToolButton>().size() < 26)
    with<ToolBar>([this](ToolBar& bar) { buildButton(bar); });
  listen();
}

void BarsWorld::buildWindow() {
  auto* const window = new QWidget;
  window->resize(90 + pick(900), 40 + pick(700));
  window->setLayoutDirection(one(4) ? Qt::RightToLeft : Qt::LeftToRight);
  window->show();
  m_windows.append(window);
  m_owned.append(window);
}

void BarsWorld::buildBar() {
  const Qt::ToolBarArea areas[] = {Qt::LeftToolBarArea, Qt::RightToolBarArea, Qt::TopToolBarArea,
                                   Qt::BottomToolBarArea};
  QWidget* const window = anyWindow();
  ToolBar* const bar = one(3) ? new ActionPanel(window) : new ToolBar(window, areas[pick(4)]);
  bar->SetOffset({pick(20), pick(20)});
  bar->SetCentered(one(2));
  bar->SetTooltipGroup(one(2) ? QStringLiteral("tips") : QString());
  if (!m_groups.empty() && one(2))
    bar->AddCommandGroup(anyGroup().get());
  bar->ShowMe();
  if (!one(4))
    return;
  auto* const row = new ToolbarManager(bar);
  row->setGatheringTime(0);
  row->addDynamicCommandGroup(anyGroup().get());
}

void BarsWorld::buildPanel() {
  QWidget* const home = one(3) ? nullptr : &m_root;
  QWidget* panel = nullptr;
  if (one(3)) {
    panel = new QSpinBox(home);
  } else {
    auto* const flyout = new FlyoutBase("flyout", new QSpinBox, AllPanelButtons, home);
    QObject::connect(flyout, &FlyoutBase::CloseFlyout, &m_root, [this] { interfere(); });
    QObject::connect(flyout, &FlyoutBase::FlyoutResized, &m_root, [this] { interfere(); });
    panel = flyout;
  }
  panel->hide();
  panel->installEventFilter(m_filter.get());
  if (!home)
    m_owned.append(panel);
  QAction* action = nullptr;
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
  action->setToolTip(QStringLiteral("What there is to say of it. ").repeated(1 + pick(8)));
  QObject::connect(action, &QAction::toggled, &m_root, [this] { interfere(); });
  QObject::connect(action, &QAction::triggered, &m_root, [this] { interfere(); });
  m_panels.append(panel);
  m_actions.insert(panel, action);
}

void BarsWorld::buildButton(ToolBar& bar) {
  QPointer<ToolBar> place(&bar);
  if (one(4)) {
    auto* const menu = new ToolBar(bar.parentWidget(), one(2) ? Qt::LeftToolBarArea : Qt::TopToolBarArea);
    menu->SetHideOnClick(one(2));
    Opener* const opener = bar.AddAction(nullptr, coloredIcon(Qt::red), menu, true, "menu");
    opener->setCheckable(one(2));
    opener->SetExtendMode(one(2));
    opener->SetClearSelectionOnHide(one(3));
    place = menu;
  }
  QWidget* const panel = anyPanel();
  if (Button* const button = panel && place ? place->AddAction(m_actions.value(panel), panel) : nullptr)
    bar.AddCallbackHandler(m_handler.get(), button->Action());
}

void BarsWorld::buildGroup() {
  auto group = namedGroup("group " + QByteArray::number(++m_made), 1 + pick(3));
  if (!one(3))
    group->setIcon(coloredIcon(Qt::green));
  if (const auto around = one(2) ? anyGroup() : nullptr)
    around->addCommand(group, pick(5));
  m_groups.push_back(std::move(group));
}

// Buttons and toolbars that the library has made are listened to as well.
void BarsWorld::listen() {
  for (ToolBar* const bar : all<ToolBar>()) {
    if (bar->property("heard").toBool())
      continue;
    bar->setProperty("heard", true);
    bar->SetAnimationDuration(0);
    for (QTimer* const timer : bar->findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly))
      timer->setInterval(0); // real time would make each walk another one
    bar->installEventFilter(m_filter.get());
    QObject::connect(bar, &ToolBar::ButtonMenuVisibilityChange, &m_root, [this] { interfere(); });
    QObject::connect(bar, &ToolBar::ToolButtonClicked, &m_root, [this] { interfere(); });
    QObject::connect(bar, &QObject::destroyed, &m_root, [this, bar] { m_rests.remove(bar); });
  }
  for (ToolButtonWithMenu* const button : all<ToolButtonWithMenu>()) {
    if (m_shown.contains(button))
      continue;
    m_shown[button] = button->MenuPhase() == MenuState::Open ? 1 : 0;
    QObject::connect(button, &ToolButtonWithMenu::ButtonMenuVisibilityChange, &m_root,
                     [this, button](ToolButton*, bool visible) {
                       m_shown[button] += visible ? 1 : -1;
                       interfere();
                     });
    QObject::connect(button, &QObject::destroyed, &m_root, [this, button] { m_shown.remove(button); });
    QObject::connect(button, &QToolButton::toggled, &m_root, [this] { interfere(); });
  }
}
