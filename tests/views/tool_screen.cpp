// SPDX-License-Identifier: MIT
#include "tool_screen.h"

#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWindow>

namespace Vela::Test {

using namespace UiBase;

namespace {

Qt::MouseButton buttonOf(QChar letter) {
  if (letter == QLatin1Char('L'))
    return Qt::LeftButton;
  return letter == QLatin1Char('R') ? Qt::RightButton : Qt::MiddleButton;
}

} // namespace

ToolScreen::ToolScreen()
    : edit(new QLineEdit), view(new BaseView), controller(new ToolController(view, journal)) {
  auto* const layout = new QVBoxLayout(&window);
  layout->addWidget(edit);
  layout->addWidget(view, 1);
  window.resize(300, 300);
  window.show();
  window.activateWindow();
  if (!QTest::qWaitForWindowActive(&window))
    qFatal("the window does not become active");
  view->setFocus();
  controller->pushTool(LeftButton, makeTool("left", Qt::OpenHandCursor, Qt::ClosedHandCursor));
  controller->pushTool(RightButton, makeTool("right", Qt::UpArrowCursor, Qt::SizeAllCursor));
  controller->pushTool(MiddleButton, makeTool("middle", Qt::UpArrowCursor, Qt::SizeHorCursor));
  controller->pushTool(NoButton, makeTool("wheel", Qt::UpArrowCursor, Qt::SizeVerCursor));
  play("mv"); // a press elsewhere would bring a move along
  journal->clear();
}

ToolScreen::~ToolScreen() {
  QTestPrivate::qtestMouseButtons = Qt::NoButton;
  QTest::mouseMove(window.windowHandle(), {5, 5}); // the application forgets the buttons, too
}

std::shared_ptr<RecordingTool> ToolScreen::makeTool(const QString& name, Qt::CursorShape idle,
                                                    Qt::CursorShape operating) {
  auto made = std::make_shared<RecordingTool>(name, journal, view);
  made->setIdleCursor(idle);
  made->setOperatingCursor(operating);
  m_tools.insert(name, made);
  return made;
}

void ToolScreen::nextPosition() {
  m_position.setX((m_position.x() + 7) % (view->width() - 20));
  m_position.setY((m_position.y() + 11) % (view->height() - 20));
}

void ToolScreen::mouse(const QString& word) {
  QWindow* const handle = window.windowHandle();
  const QPoint at = view->mapTo(&window, m_position + QPoint(10, 10));
  const Qt::MouseButton button = buttonOf(word.at(0));
  if (word == "mv") {
    nextPosition();
    QTest::mouseMove(handle, view->mapTo(&window, m_position + QPoint(10, 10)));
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

void ToolScreen::play(const QString& script) {
  const QStringList words = script.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  for (const QString& word : words) {
    if (const auto action = m_actions.constFind(word); action != m_actions.cend()) {
      (*action)();
    } else if (word == "key") {
      QTest::keyClick(window.windowHandle(), Qt::Key_K);
    } else if (word == "wh") {
      const QPointF at = m_position;
      QWheelEvent wheel(at, view->mapToGlobal(at), {}, {0, 120}, QTestPrivate::qtestMouseButtons, {},
                        Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(view, &wheel);
    } else {
      mouse(word);
    }
  }
}

QString ToolScreen::told() { return std::exchange(*journal, {}).join(QLatin1Char(' ')); }

} // namespace Vela::Test
