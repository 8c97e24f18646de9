// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/base_view_controller.h>

#include <QDragEnterEvent>
#include <QHash>
#include <QStringList>

#include <functional>

namespace Vela::Test {

/// Writes down its calls as "a press" and declines input; does what it was told to do in a call.
class RecordingController : public UiBase::BaseViewController {
  Q_OBJECT

public:
  RecordingController(QStringList* calls, UiBase::BaseView* view, QString name)
      : BaseViewController(view), m_calls(calls), m_name(std::move(name)) {}

  bool mayClose = true;
  bool endsWithTheProgram = true;
  QHash<QString, std::function<void()>> on;

  bool mousePress(QMouseEvent*) override { return !note("press"); }
  bool keyPress(QKeyEvent*) override { return !note("key"); }
  bool keyRelease(QKeyEvent*) override { return !note("keyup"); }
  bool mouseDragEnter(QDragEnterEvent* event) override {
    event->accept(); // for what follows
    return !note("drag");
  }
  bool mouseDragMove(QDragMoveEvent*) override { return !note("over"); }
  bool mouseDragLeave(QDragLeaveEvent*) override { return !note("leave"); }
  bool mouseDrop(QDropEvent*) override { return !note("drop"); }
  bool mayShutDown() override { return endsWithTheProgram; }
  void viewDidLoad() override {
    pass("load", [this] { BaseViewController::viewDidLoad(); });
  }
  void viewWillAppear() override {
    pass("+", [this] { BaseViewController::viewWillAppear(); });
  }
  void viewWillDisappear() override {
    pass("-", [this] { BaseViewController::viewWillDisappear(); });
  }
  bool viewWillClose() override {
    const bool agrees = mayClose;
    return note("close") && agrees ? BaseViewController::viewWillClose() : agrees;
  }
  void viewDidResize(QResizeEvent*) override { act("resized"); }
  void viewDidMove(QMoveEvent*) override { act("moved"); }

protected:
  void viewWasLost() override {
    pass("lost", [this] { BaseViewController::viewWasLost(); });
  }

private:
  void pass(const char* call, const auto& base) {
    if (note(call))
      base();
  }
  /// @return whether the controller lived to see the end of it.
  bool note(const char* call) {
    m_calls->append(m_name + QLatin1Char(' ') + QLatin1String(call));
    return act(call);
  }
  bool act(const char* call) {
    const QPointer<RecordingController> self(this);
    if (const auto action = on.value(QString::fromLatin1(call)))
      action();
    return self;
  }

  QStringList* m_calls;
  const QString m_name;
};

} // namespace Vela::Test
