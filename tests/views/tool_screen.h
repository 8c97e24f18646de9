// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>

#include <QLineEdit>
#include <QPointer>
#include <QStringList>

#include <functional>
#include <memory>
#include <tools/recording_tool.h>

namespace Vela::Test {

/// A controller that writes down its right clicks.
class ToolController : public UiBase::CmdsViewController {
public:
  ToolController(UiBase::BaseView* view, std::shared_ptr<QStringList> journal)
      : CmdsViewController(view), m_journal(std::move(journal)) {}

protected:
  bool rightClick(QMouseEvent*) override {
    m_journal->append(QStringLiteral("menu"));
    return true;
  }

private:
  const std::shared_ptr<QStringList> m_journal;
};

/// A window with a line edit above a view, which has a tool on each button: "left", "right", "middle",
/// "wheel". It is driven by scripts, one word for each thing a person does:
///
/// "L+" "R+" "M+" press a button, "L-" "R-" "M-" release it, "mv" moves the mouse, "LL" "RR" "MM"
/// double-click, "wh" turns the wheel, "key" presses and releases a key, "L?" "R?" "M?" release a button
/// where the window does not hear of it. Words of on() are added to these.
class ToolScreen {
public:
  ToolScreen();
  ~ToolScreen();

  void on(const QString& word, std::function<void()> action) { m_actions.insert(word, std::move(action)); }
  /// What a word of on() does.
  void act(const QString& word) { m_actions.value(word)(); }
  void play(const QString& script);
  /// What the tools were given since the last call, without moves that reach no operation.
  QString told();
  Qt::CursorShape cursor() const { return view->cursor().shape(); }
  std::shared_ptr<RecordingTool> tool(const QString& name) const { return m_tools.value(name); }
  std::shared_ptr<RecordingTool> makeTool(const QString& name, Qt::CursorShape idle,
                                          Qt::CursorShape operating);

  std::shared_ptr<QStringList> journal = std::make_shared<QStringList>();
  QWidget window;
  QLineEdit* edit;
  QPointer<UiBase::BaseView> view;
  ToolController* controller;

private:
  void mouse(const QString& word);
  void nextPosition();

  QHash<QString, std::shared_ptr<RecordingTool>> m_tools;
  QHash<QString, std::function<void()>> m_actions;
  QPoint m_position;
};

} // namespace Vela::Test
