// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>
#include <ui_base/tools/interactive_tool.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>

#include <QLineEdit>
#include <QPointer>
#include <QStringList>
#include <QTabWidget>

#include <array>
#include <memory>
#include <vector>

namespace Vela::Test {

class FuzzController;

/// What the callbacks of controllers, tools and commands do.
enum Act {
  DeleteView,
  DeleteController,
  DeleteItself,
  Present,
  Dismiss,
  Reattach,
  Reparent,
  NestedLoop,
  Dialog,
  Menu,
  CloseView,
  HideOrShow,
  PushTool,
  PopTool,
  ClearTools,
  ResetTools,
  BeginOperation,
  EndOperation,
  ACTS
};

/// The bytes that decide what happens; zeros when they are used up.
class Bytes {
public:
  Bytes(const unsigned char* data, std::size_t size) : m_next(data), m_end(data + size) {}
  bool isEmpty() const { return m_next == m_end; }
  int next(int count) { return isEmpty() ? 0 : *m_next++ % count; }

private:
  const unsigned char* m_next;
  const unsigned char* m_end;
};

/// A window with tabs, and up to six views in it, in one another and on their own, with controllers, tools
/// and commands that act at random in their callbacks. A stream of bytes decides what happens, so that each
/// run can be repeated.
class ViewFuzz {
public:
  explicit ViewFuzz(Bytes bytes);
  ~ViewFuzz();

  /// Runs until the bytes are used up or something is wrong. @return what is wrong, or nothing.
  QString run();
  int steps() const { return m_steps; }

  /// How often each act was done in a callback, in all runs.
  static std::array<int, ACTS>& hits();

  /// What a callback calls. @p itself is who called it.
  void callOut(UiBase::CmdsViewController* controller, UiBase::InteractiveTool* itself = nullptr);
  /// Whether who asks says no.
  bool refuses() { return m_depth < MaxDepth && m_bytes.next(8) == 7; }
  /// Qt works on with the widget after the event, so it is not to be deleted meanwhile. Its controller may
  /// be.
  void enterEvent() { ++m_events; }
  void leaveEvent() { --m_events; }
  /// Pops a tool where it is on top.
  void takeOff(UiBase::InteractiveTool& tool);
  /// Of a view that dies.
  void forget(UiBase::BaseView* view) { std::erase(m_views, view); }
  void report(const QString& finding) { m_findings.append(finding); }
  /// What is done, for who reads a finding.
  void note(const QString& act, const UiBase::CmdsViewController* who = nullptr);

  bool keepsWindows = false;

private:
  using View = QPointer<UiBase::BaseView>;
  static constexpr int MaxDepth = 3;

  void step();
  void act(Act act, UiBase::CmdsViewController* controller, UiBase::InteractiveTool* itself);
  void mouse();
  void loseRelease();
  void widgetStep();
  void commandStep();
  void makeView();
  void present(UiBase::BaseViewController& controller, UiBase::CmdsViewController* caller);
  void reattach(UiBase::CmdsViewController& controller);
  void reparent(UiBase::BaseView& view);
  void openDialog();
  void openMenu();
  void deleteView(UiBase::BaseView* view);
  void deleteController(UiBase::CmdsViewController* controller);
  void pushTool(UiBase::CmdsViewController& controller, UiBase::EToolActivationButton button);
  UiBase::BaseView* anyView();
  UiBase::CmdsViewController* anyController();
  QWindow* anyWindow();

  void check();
  void checkPresentation(const UiBase::BaseView& view);
  void checkTools(UiBase::CmdsViewController& controller);
  void checkCursor(const UiBase::BaseView& view);
  void checkFocus();
  void checkChildren(const UiBase::BaseView& view);
  void checkUse();
  void checkUseOf(FuzzController& controller);

  Bytes m_bytes;
  QStringList m_findings;
  QStringList m_lastActs;
  int m_steps = 0;
  int m_made = 0;
  int m_depth = 0;
  int m_events = 0;
  int m_deletes = 0;
  const QWidget* m_newHome = nullptr; // of the view that is being moved; Qt knows it, the view does not
  QPointer<QWindow> m_inputWindow;    // which Qt goes on with
  UiBase::CmdsViewController* m_caller = nullptr; // of the act; it lives when that begins
  const qsizetype m_shutdownDelegates;            // before there was a view
  QWidget m_window;
  QLineEdit* m_edit;
  QTabWidget* m_tabs;
  std::vector<View> m_views;
  std::vector<std::shared_ptr<UiBase::InteractiveTool>> m_tools; // also those on no stack
};

} // namespace Vela::Test
