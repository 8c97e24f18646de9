// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>

#include <QLineEdit>
#include <QPointer>
#include <QStringList>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWindow>

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
  ToolScreen() {
    auto* const layout = new QVBoxLayout(&window);
    layout->addWidget(edit);
    layout->addWidget(view, 1);
    window.resize(300, 300);
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
      qFatal("the window does not become active");
    view->setFocus();
    push(UiBase::LeftButton, "left");
    push(UiBase::RightButton, "right");
    push(UiBase::MiddleButton, "middle");
    push(UiBase::NoButton, "wheel");
    play("mv"); // a press elsewhere would bring a move along
    journal->clear();
  }
  ~ToolScreen() {
    QTestPrivate::qtestMouseButtons = Qt::NoButton;
    QTest::mouseMove(window.windowHandle(), {5, 5}); // the application forgets the buttons, too
  }
  Q_DISABLE_COPY_MOVE(ToolScreen)

  void on(const QString& word, const std::function<void()>& action) { m_actions.insert(word, action); }
  void play(const QString& script) {
    const QStringList words = script.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : words) {
      if (const auto action = m_actions.value(word))
        action();
      else if (word == "key")
        QTest::keyClick(window.windowHandle(), Qt::Key_K);
      else
        mouse(word);
    }
  }
  /// What the tools were given since the last call, without moves that reach no operation.
  QString told() { return std::exchange(*journal, {}).join(QLatin1Char(' ')); }
  Qt::CursorShape cursor() const { return view->cursor().shape(); }
  std::shared_ptr<RecordingTool> tool(const QString& name) const { return m_tools.value(name); }

  std::shared_ptr<QStringList> journal = std::make_shared<QStringList>();
  QWidget window;
  QLineEdit* edit = new QLineEdit;
  QPointer<UiBase::BaseView> view = new UiBase::BaseView;
  ToolController* controller = new ToolController(view, journal);

private:
  void push(UiBase::EToolActivationButton button, const QString& name) {
    const auto made = std::make_shared<RecordingTool>(name, journal, view);
    made->setIdleCursor(Qt::OpenHandCursor);
    m_tools.insert(name, made);
    controller->pushTool(button, made);
  }
  void mouse(const QString& word) {
    if (word == "mv")
      m_position += QPoint(7, 11);
    QWindow* const handle = window.windowHandle();
    const QPoint at = view->mapTo(&window, m_position);
    const auto button = word.at(0) == 'L'   ? Qt::LeftButton
                        : word.at(0) == 'R' ? Qt::RightButton
                                            : Qt::MiddleButton;
    if (word == "mv") {
      QTest::mouseMove(handle, at);
    } else if (word == "wh") {
      QWheelEvent wheel(m_position, view->mapToGlobal(m_position), {}, {0, 120},
                        QTestPrivate::qtestMouseButtons, {}, Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(view, &wheel);
    } else if (word.at(1) == '+') {
      QTest::mousePress(handle, button, {}, at);
    } else if (word.at(1) == '-') {
      QTest::mouseRelease(handle, button, {}, at);
    } else if (word.at(1) == '?') {
      QTestPrivate::qtestMouseButtons.setFlag(button, false);
      QTest::lastMouseTimestamp += QTest::mouseDoubleClickInterval; // the next press is no double click
    } else {
      QTest::mouseDClick(handle, button, {}, at);
    }
  }

  QHash<QString, std::shared_ptr<RecordingTool>> m_tools;
  QHash<QString, std::function<void()>> m_actions;
  QPoint m_position{10, 10};
};

} // namespace Vela::Test
