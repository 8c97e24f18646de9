// SPDX-License-Identifier: MIT
#pragma once

#include <support/input.h>
#include <ui_base/commands/command_base.h>
#include <ui_base/tools/interactive_tool.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>

#include <array>
#include <vector>

namespace Vela::Test {

class FuzzController;

/// The bytes that decide what happens; zeros when they are used up.
class Bytes {
public:
  explicit Bytes(QByteArray bytes) : m_bytes(std::move(bytes)) {}
  bool isEmpty() const { return m_next == m_bytes.size(); }
  int next(int count) { return isEmpty() ? 0 : static_cast<unsigned char>(m_bytes[m_next++]) % count; }

private:
  QByteArray m_bytes;
  qsizetype m_next = 0;
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

  /// What a callback calls. @p itself is who called it.
  void callOut(UiBase::CmdsViewController* controller, UiBase::InteractiveTool* itself = nullptr);
  /// Whether who asks says no.
  bool refuses() { return m_depth < MaxDepth && m_bytes.next(8) == 7; }
  /// Pops a tool where it is on top.
  void takeOff(UiBase::InteractiveTool* tool);
  /// Of a view that dies.
  void forget(UiBase::BaseView* view) { std::erase(m_views, view); }
  void never(bool found, const char* what) {
    if (found)
      m_findings.append(QString::fromLatin1(what));
  }
  /// What is done, for who reads a finding.
  void note(const QString& act, const UiBase::CmdsViewController* who = nullptr);

  /// How many widgets Qt works on with after their event, so that none is to be deleted meanwhile. Their
  /// controllers may be.
  int events = 0;
  bool keepsWindows = false;

private:
  using View = QPointer<UiBase::BaseView>;
  static constexpr int MaxDepth = 3;

  void step();
  void act(UiBase::CmdsViewController* controller, UiBase::InteractiveTool* itself);
  void mouse();
  void widgetStep();
  void commandStep();
  void makeView();
  void present(UiBase::BaseViewController& controller, UiBase::CmdsViewController* caller);
  void reattach(UiBase::CmdsViewController& controller);
  void reparent(const View& view);
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
  void checkChild(const UiBase::BaseView& view, bool isCovered);
  void checkUse();
  void checkUseOf(FuzzController& controller);

  Bytes m_bytes;
  QStringList m_findings;
  QStringList m_lastActs;
  int m_steps = 0;
  int m_made = 0;
  int m_depth = 0;
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
