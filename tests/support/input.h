// SPDX-License-Identifier: MIT
#pragma once

#include "test_case.h"

/// Input as a person gives it: through the window of a widget, so that what lies over it gets it instead.
namespace Vela::Test {

/// A position in a widget as one of its window; its middle unless told.
inline QPoint inWindow(const QWidget& widget, const QPoint& at) { return widget.mapTo(widget.window(), at); }
inline QPoint inWindow(const QWidget& widget) { return inWindow(widget, widget.rect().center()); }

inline void clickAt(const QWidget& widget, const QPoint& at, Qt::MouseButton button = Qt::LeftButton,
                    Qt::KeyboardModifiers modifiers = {}) {
  QTest::mouseClick(widget.window()->windowHandle(), button, modifiers, inWindow(widget, at));
}
inline void click(const QWidget& widget) { clickAt(widget, widget.rect().center()); }

inline void moveMouse(const QWidget& widget, const QPoint& at) {
  QTest::mouseMove(widget.window()->windowHandle(), inWindow(widget, at));
}
inline void moveMouse(const QWidget& widget) { moveMouse(widget, widget.rect().center()); }

/// The buttons are held, which no window hears of.
inline void holdUnheard(Qt::MouseButtons buttons) {
  QTestPrivate::qtestMouseButtons = buttons;
  QTest::lastMouseTimestamp += QTest::mouseDoubleClickInterval; // the next press is no double click
}

inline void pressKey(const QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  QTest::keyClick(widget.window()->windowHandle(), key, modifiers);
}

/// Shows a window and gives it the keyboard.
inline void showActive(QWidget& window) {
  window.show();
  window.activateWindow();
  if (!QTest::qWaitForWindowActive(&window))
    qFatal("the window does not become active");
}

/// Turns the event loop until a timer of this length has fired.
inline void letTimePass(int milliseconds) {
  bool passed = false;
  QTimer::singleShot(milliseconds, qApp, [&passed] { passed = true; });
  QTRY_VERIFY(passed);
}

} // namespace Vela::Test
