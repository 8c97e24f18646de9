// SPDX-License-Identifier: MIT
#pragma once

#include <support/input.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>

#include <QtTest/qtestspontaneevent.h>

#include <tools/recording_tool.h>

namespace Vela::Test {

/// Tells its right clicks.
struct ToolController : UiBase::CmdsViewController {
  using CmdsViewController::CmdsViewController;

  std::function<void()> onRightClick;

protected:
  bool rightClick(QMouseEvent*) override {
    onRightClick();
    return true;
  }
};

/// Tells the input that the view in it left to it.
struct Behind : QWidget {
  std::function<void()> onInput;
  bool event(QEvent* event) override {
    const int type = event->type();
    const bool isInput =
        (type >= QEvent::MouseButtonPress && type <= QEvent::KeyRelease) || type == QEvent::Wheel;
    if (onInput && isInput)
      onInput();
    return QWidget::event(event);
  }
};

/// A window with a line edit above a view, which has the tools L, R and M on its buttons and W on the
/// wheel. It is driven by scripts, one word for each thing a person does:
///
/// "L+" "R+" "M+" press a button, "L-" "R-" "M-" release it, "L2" "R2" "M2" double-click, "mv" moves the
/// mouse, "wheel" turns the wheel, "key" presses and releases a key, "edit" focuses the line edit, "lost"
/// releases the buttons where the window does not hear of it, "soon" makes the next press a double click.
/// Words of on() are added to these; where such a word is input that is told, as "L:double", the tool does
/// that and takes it, unless takesWords is off.
class ToolScreen {
public:
  ToolScreen() {
    auto* const layout = new QVBoxLayout(&window);
    layout->addWidget(edit);
    layout->addWidget(view, 1);
    window.resize(300, 300);
    showActive(window);
    view->setFocus();
    controller->onRightClick = [this] { tell("menu"); };
    controller->pushTool(UiBase::LeftButton, left);
    controller->pushTool(UiBase::RightButton, right);
    controller->pushTool(UiBase::MiddleButton, makeTool("M"));
    controller->pushTool(UiBase::NoButton, makeTool("W"));
    on("mv", [this] { moveMouse(*view, m_position += QPoint(7, 11)); });
    on("lost", [] { holdUnheard(Qt::NoButton); });
    on("soon", [] { QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval; });
    on("key", [this] { pressKey(window, Qt::Key_K); });
    on("edit", [this] { edit->setFocus(); });
    on("wheel", [this] {
      QWheelEvent wheel(m_position, view->mapToGlobal(m_position), {}, {0, 120},
                        QTestPrivate::qtestMouseButtons, {}, Qt::NoScrollPhase, false);
      QSpontaneKeyEvent::setSpontaneous(&wheel); // Qt hands no other on to what is behind
      QCoreApplication::instance()->notify(view, &wheel);
    });
    play("mv"); // a press elsewhere would bring a move along
    told();
    window.onInput = [this] { tell("behind"); };
  }
  ~ToolScreen() { play("lost mv"); } // the application forgets the buttons, too
  Q_DISABLE_COPY_MOVE(ToolScreen)

  void on(const QString& word, const std::function<void()>& action) { m_words.insert(word, action); }
  void play(const QString& script) {
    const QStringList words = script.split(' ');
    for (const QString& word : words)
      m_words.contains(word) ? m_words[word]() : useButton(word);
  }
  std::shared_ptr<RecordingTool> makeTool(const QString& name) {
    auto tool = std::make_shared<RecordingTool>(name, view);
    tool->hear = [this, name](const QString& input) {
      const QString word = name + ':' + input;
      tell(word);
      if (m_words.contains(word))
        m_words[word]();
      return m_words.contains(word) && takesWords;
    };
    tool->setIdleCursor(Qt::OpenHandCursor);
    return tool;
  }
  void tell(const QString& input) { m_told += input; }
  /// What was told since the last call.
  QString told() { return std::exchange(m_told, {}).join(' '); }

  bool takesWords = true;

private:
  void useButton(const QString& word) {
    const QHash<QChar, Qt::MouseButton> buttons{
        {'L', Qt::LeftButton}, {'R', Qt::RightButton}, {'M', Qt::MiddleButton}};
    const QHash<QChar, QTest::MouseAction> uses{
        {'+', QTest::MousePress}, {'-', QTest::MouseRelease}, {'2', QTest::MouseDClick}};
    QTest::mouseEvent(uses[word[1]], window.windowHandle(), buttons[word[0]], {},
                      inWindow(*view, m_position));
  }

  QStringList m_told;
  QHash<QString, std::function<void()>> m_words;
  QPoint m_position{10, 10};

public:
  Behind window;
  QLineEdit* edit = new QLineEdit;
  UiBase::BaseView* view = new UiBase::BaseView;
  ToolController* controller = new ToolController(view);
  const std::shared_ptr<RecordingTool> left = makeTool("L");
  const std::shared_ptr<RecordingTool> right = makeTool("R");
};

} // namespace Vela::Test
