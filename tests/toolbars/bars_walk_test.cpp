// SPDX-License-Identifier: MIT
#include "bars_world.h"

#include <ui_base/core/dying.h>

#include <algorithm>

using namespace Vela::UiBase;

ToolBar* BarsWorld::anyBar() {
  listen();
  QList<ToolBar*> bars = all<ToolBar>();
  bars.removeIf([](const ToolBar* bar) { return bar->OwnerButton(); });
  return bars.isEmpty() ? nullptr : bars[pick(int(bars.size()))];
}

void BarsWorld::clickOn(QWidget* target) {
  QWidget* const window = target ? target->window() : nullptr;
  if (!window || !target->isVisible() || !window->windowHandle())
    return;
  const QPointer<QWindow> handle(window->windowHandle());
  const QPoint point = target->mapTo(window, target->rect().center());
  if (!window->rect().contains(point))
    return;
  const auto isInside = [&] { return handle && QRect(QPoint(), handle->size()).contains(point); };
  QTest::mouseMove(handle, point);
  if (isInside())
    QTest::mousePress(handle, Qt::LeftButton, {}, point);
  if (one(3))
    Vela::Test::settle();
  if (isInside())
    QTest::mouseRelease(handle, Qt::LeftButton, {}, point);
}

void BarsWorld::key(Qt::Key key) {
  QWidget* const window = QApplication::activeWindow();
  if (window && window->windowHandle() && !isDying(*window))
    QTest::keyClick(window->windowHandle(), key);
}

void BarsWorld::destroy(QObject* victim) {
  if (m_depth == 0)
    destroyNow(victim);
  else
    m_doomed.append(victim);
}

std::vector<BarsWorld::Deed> BarsWorld::userDeeds() {
  return {
      {"click a button", false, [this] { clickOn(any<Button>()); }},
      {"click an opener", false, [this] { clickOn(any<Opener>()); }},
      {"click anything", false, [this] { clickOn(any<QWidget>()); }},
      {"click a window", false, [this] { clickOn(anyWindow()); }},
      {"escape", true, [this] { key(Qt::Key_Escape); }},
      {"space", true, [this] { key(Qt::Key_Space); }},
      {"next bar", true, [this] { key(Qt::Key_F6); }},
      {"activate", true, [this] { anyWindow()->activateWindow(); }},
      {"tooltip", true, [this] { with<ToolButton>([this](ToolButton& button) { showTooltip(button); }); }},
      {"event loop", true,
       [] {
         QEventLoop loop;
         QTimer::singleShot(0, &loop, &QEventLoop::quit);
         loop.exec();
       }},
      {"resize", true, [this] { anyWindow()->resize(90 + pick(900), 40 + pick(700)); }},
      {"settle", false, [] { Vela::Test::settle(); }},
  };
}

std::vector<BarsWorld::Deed> BarsWorld::menuDeeds() {
  return {
      {"trigger", true,
       [this] {
         with<Button>([](const Button& button) { button.Action() ? button.Action()->trigger() : void(); });
       }},
      {"show a menu", true, [this] { with<Button>([](Button& button) { button.ShowMenu(); }); }},
      {"hide a menu", true, [this] { with<Button>([](Button& button) { button.HideMenu(); }); }},
      {"show a sub-toolbar", true, [this] { with<Opener>([](Opener& opener) { opener.ShowMenu(); }); }},
      {"hide a sub-toolbar", true, [this] { with<Opener>([](Opener& opener) { opener.HideMenu(); }); }},
      {"show a panel", true, [this] { withPanel([](QWidget& panel) { panel.show(); }); }},
      {"hide a panel", true, [this] { withPanel([](QWidget& panel) { panel.hide(); }); }},
      {"close a flyout", true,
       [this] { withPanel<FlyoutBase>([](FlyoutBase& flyout) { flyout.CloseMe(); }); }},
      {"busy", true,
       [this] { withPanel<FlyoutBase>([this](FlyoutBase& flyout) { flyout.SetBusy(one(2)); }); }},
      {"exit a command", true,
       [this] {
         if (PanelCommand* const command = m_commands.value(pick(int(m_commands.size()))))
           command->onExitCommand();
       }},
      {"re-parent a panel", true,
       [this] { withPanel([this](QWidget& panel) { panel.setParent(one(2) ? &m_root : anyWindow()); }); }},
      {"exchange a menu", true,
       [this] { with<Button>([this](Button& button) { button.SetMenu(anyPanel(), !one(4)); }); }},
      {"extend mode", true,
       [this] { with<Opener>([this](Opener& opener) { opener.SetExtendMode(one(2)); }); }},
      {"extend controller", true,
       [this] {
         with<Button>(
             [this](Button& button) { button.SetExtendController(one(2) ? nullptr : any<Opener>()); });
       }},
      {"enable", true,
       [this] { with<ToolButton>([this](ToolButton& button) { button.setEnabled(one(2)); }); }},
  };
}

std::vector<BarsWorld::Deed> BarsWorld::barDeeds() {
  const auto toBar = [this](const char* name, void (*act)(BarsWorld&, ToolBar&)) {
    return Deed{name, true, [this, act] {
                  if (ToolBar* const chosen = anyBar())
                    act(*this, *chosen);
                }};
  };
  return {
      toBar("close all", [](BarsWorld&, ToolBar& bar) { bar.HideAllButtonMenusExcept(false, nullptr); }),
      toBar("outside", [](BarsWorld&, ToolBar& bar) { bar.OnMouseClickedOutside(); }),
      toBar("dismiss", [](BarsWorld&, ToolBar& bar) { bar.DismissLeafMenu(); }),
      toBar("resize timer", [](BarsWorld&, ToolBar& bar) { bar.OnResizeTimerTimeOut(); }),
      toBar("hide a bar", [](BarsWorld&, ToolBar& bar) { bar.HideMe(false); }),
      toBar("show a bar", [](BarsWorld&, ToolBar& bar) { bar.ShowMe(); }),
      toBar("slide a bar in", [](BarsWorld&, ToolBar& bar) { bar.ShowAnimated(); }),
      toBar("slide a bar out", [](BarsWorld&, ToolBar& bar) { bar.HideAnimated(); }),
      toBar("enable actions", [](BarsWorld&, ToolBar& bar) { bar.EnableActions(); }),
      toBar("lock a bar", [](BarsWorld& world, ToolBar& bar) { bar.SetLocked(world.one(2)); }),
      toBar("place a bar",
            [](BarsWorld& world, ToolBar& bar) {
              if (bar.property("CMDGROUP_PROP").isValid())
                return; // its row places it
              const QPoint place(world.pick(300), world.pick(200));
              world.m_rests[&bar] = place;
              bar.SetPos(place);
            }),
      toBar("back to the edge",
            [](BarsWorld& world, ToolBar& bar) {
              world.m_rests.remove(&bar);
              bar.SetEnableAutoPosition(!bar.property("CMDGROUP_PROP").isValid());
            }),
      toBar("turn",
            [](BarsWorld& world, ToolBar& bar) {
              bar.setLayoutDirection(world.one(2) ? Qt::RightToLeft : Qt::LeftToRight);
            }),
  };
}

std::vector<BarsWorld::Deed> BarsWorld::groupDeeds() {
  const auto toGroup = [this](const char* name, void (*act)(BarsWorld&, Group&)) {
    return Deed{name, true, [this, act] {
                  if (const auto kept = anyGroup())
                    act(*this, *kept);
                }};
  };
  return {
      toGroup("add to a group",
              [](BarsWorld& world, Group& group) {
                if (group.commandBag().count() < 4)
                  group.addCommand(namedCommand(QStringLiteral("late %1").arg(++world.m_made)),
                                   world.pick(5));
              }),
      toGroup("remove from a group",
              [](BarsWorld&, Group& group) {
                if (group.commandBag().count() > 0)
                  group.removeCommand(group.commandBag().commandAt(0)->commandId());
              }),
      toGroup("rename a group",
              [](BarsWorld& world, Group& group) { group.setText(QString::number(world.pick(100))); }),
      toGroup("enable a group", [](BarsWorld& world, Group& group) { group.setEnabled(!world.one(4)); }),
      toGroup("hide a group", [](BarsWorld& world, Group& group) { group.setVisible(!world.one(4)); }),
      toGroup("begin a group",
              [](BarsWorld& world, Group& group) {
                world.with<ToolbarManager>([&group](ToolbarManager& row) { row.commandGroupBegan(&group); });
              }),
      toGroup("end a group",
              [](BarsWorld& world, Group& group) {
                world.with<ToolbarManager>([&group](ToolbarManager& row) { row.commandGroupEnded(&group); });
              }),
      {"remove a command from a bar", true,
       [this] {
         const auto kept = m_groups.empty() ? nullptr : m_groups.front();
         ToolBar* const bar = kept && one(3) ? anyBar() : nullptr;
         if (bar && kept->commandBag().count() > 0)
           bar->RemoveCommand(kept->commandBag().commandAt(0));
       }},
      {"a group dies", false,
       [this] {
         if (!m_groups.empty() && one(3))
           m_groups.erase(m_groups.begin() + pick(int(m_groups.size())));
       }},
  };
}

std::vector<BarsWorld::Deed> BarsWorld::deadlyDeeds() {
  return {
      {"delete a panel", true, [this] { destroy(anyPanel()); }},
      {"delete a button", true, [this] { destroy(any<ToolButton>()); }},
      {"delete a bar", true, [this] { destroy(one(3) ? any<ToolBar>() : nullptr); }},
      {"delete an arrowed window", true,
       [this] { with<Button>([this](const Button& button) { destroy(button.GetArrowedWindow()); }); }},
      {"delete a window", true,
       [this] {
         QWidget* const window = anyWindow();
         destroy(one(4) && window != &m_root ? window : nullptr);
       }},
  };
}

class BarsWalkTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void anythingGoesAtAnyTime();
};

// VELA_FUZZ_SEED for another walk, VELA_FUZZ_STEPS for a longer one, VELA_FUZZ_TRACE tells what is done.
void BarsWalkTest::anythingGoesAtAnyTime() {
  const unsigned seed = qEnvironmentVariable("VELA_FUZZ_SEED", QStringLiteral("1")).toUInt();
  const int steps = qEnvironmentVariable("VELA_FUZZ_STEPS", QStringLiteral("700")).toInt();
  qInfo("seed %u", seed);
  BarsWorld world(seed);
  QString fault;
  QEventLoop loop; // without one nested loops would delete what is in use
  QTimer::singleShot(0, &loop, [&] {
    for (int i = 0; i < steps && fault.isEmpty(); ++i) {
      world.step();
      fault = i % 5 == 0 ? world.fault() : QString();
      if (!fault.isEmpty())
        fault += QString(", seed %1, step %2").arg(seed).arg(i);
    }
    loop.quit();
  });
  loop.exec();
  QVERIFY2(fault.isEmpty(), qPrintable(fault));
  if (steps >= 700)
    QCOMPARE(world.neverDone(), QStringList());
}

VELA_TEST_MAIN(BarsWalkTest)
#include "bars_walk_test.moc"
