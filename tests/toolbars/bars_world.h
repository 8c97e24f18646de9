// SPDX-License-Identifier: MIT
#pragma once

#include "tool_button_fixture.h"
#include "toolbars_fixture.h"

#include <ui_base/toolbars/toolbar_manager.h>

#include <functional>
#include <random>
#include <vector>

/// Windows of random sizes with toolbars, action panels and rows of toolbars, whose buttons share flyouts,
/// plain panels and sub-toolbars, and groups of commands that change; with a user and callbacks that do
/// anything with them at any time.
class BarsWorld {
public:
  using Button = Vela::UiBase::ToolButtonWithWidgetMenu;
  using Opener = Vela::UiBase::ToolButtonWithButtonMenu;
  using Bar = Vela::UiBase::ToolBar;
  using Group = Vela::UiBase::CommandGroup;
  struct Deed {
    const char* name;
    bool inCallbacks; // what a callback may do to what calls it
    std::function<void()> act;
    int done = 0;
    int doneInCallbacks = 0;
  };

  explicit BarsWorld(unsigned seed);
  ~BarsWorld();

  /// Replaces what has died, and does something.
  void step();
  /// What is wrong when everything has come to rest, or nothing.
  QString fault();
  /// What was never done, or never by a callback that may.
  QStringList neverDone() const;

private:
  int pick(int count) { return count > 0 ? int(m_random() % unsigned(count)) : 0; }
  bool one(int of) { return pick(of) == 0; }
  template <class T>
  static void collect(const QObject& parent, QList<T*>& found) {
    for (QObject* const child : parent.children()) { // null while it is being deleted with the others
      if (auto* const wanted = qobject_cast<T*>(child))
        found.append(wanted);
      if (child)
        collect(*child, found);
    }
  }
  template <class T>
  QList<T*> all() const {
    QList<T*> found;
    for (const QPointer<QWidget>& window : m_windows) {
      if (window)
        collect(*window, found);
    }
    return found;
  }
  template <class T>
  T* any() {
    const QList<T*> found = all<T>();
    return found.isEmpty() ? nullptr : found[pick(int(found.size()))];
  }
  template <class T, class Do>
  void with(const Do& act) {
    if (T* const chosen = any<T>())
      act(*chosen);
  }
  template <class T = QWidget, class Do>
  void withPanel(const Do& act) {
    if (T* const panel = qobject_cast<T*>(anyPanel()))
      act(*panel);
  }
  QWidget* anyWindow() { return m_windows.value(pick(int(m_windows.size()))); }
  QWidget* anyPanel() {
    QWidget* const panel = m_panels.value(pick(int(m_panels.size())));
    const bool dies = !qobject_cast<QSpinBox*>(panel) && !qobject_cast<Vela::UiBase::FlyoutBase*>(panel);
    return dies ? nullptr : panel;
  }
  std::shared_ptr<Group> anyGroup() {
    return m_groups.empty() ? nullptr : m_groups[unsigned(pick(int(m_groups.size())))];
  }
  Bar* anyBar();

  void interfere(); // from every callback
  void doNow(Deed& deed);
  std::vector<Deed> userDeeds();
  std::vector<Deed> menuDeeds();
  std::vector<Deed> barDeeds();
  std::vector<Deed> groupDeeds();
  std::vector<Deed> deadlyDeeds();
  /// Now, or with the next step where a callback may stand in it.
  void destroy(QObject* victim);
  void destroyNow(QObject* victim);
  void clickOn(QWidget* target);
  void key(Qt::Key key);
  void showTooltip(Vela::UiBase::ToolButton& button);

  void build();
  void buildWindow();
  void buildBar();
  void buildPanel();
  void buildButton(Bar& bar);
  void buildGroup();
  void listen();

  QString menuFault() const;
  QString nestFault() const;
  QString lockFault() const;
  QString commandFault() const;
  QString placeFault() const;
  QString sightFault() const;

  class Filter;
  class Handler;

  std::mt19937 m_random;
  std::vector<Deed> m_deeds;
  QWidget m_root;
  Vela::UiBase::CmdsViewController* m_controller = nullptr;
  std::unique_ptr<Filter> m_filter;
  std::unique_ptr<Handler> m_handler;
  std::shared_ptr<CommandObserver> m_observer = std::make_shared<CommandObserver>();
  std::vector<std::shared_ptr<Vela::UiBase::CommandBase>> m_keptCommands;
  std::vector<std::shared_ptr<Group>> m_groups;
  QList<QPointer<QWidget>> m_owned;
  QList<QPointer<QObject>> m_doomed;
  QList<QPointer<QWidget>> m_windows;
  QList<QPointer<QWidget>> m_panels;
  QHash<const QWidget*, QAction*> m_actions;
  QList<PanelCommand*> m_commands;
  QHash<const QObject*, int> m_shown;    // the buttons that are listened to: how often shown, less hidden
  QHash<const QObject*, QPoint> m_rests; // of the bars that were placed by hand
  QString m_tooltipFault;
  const bool m_traced = qEnvironmentVariableIsSet("VELA_FUZZ_TRACE");
  bool m_armed = false;
  int m_depth = 0;
  int m_made = 0;
};
