// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/base_view_controller.h>

#include <QEvent>
#include <QHash>
#include <QStringList>

#include <functional>

namespace Vela::Test {

/// Writes down every call and declines or consumes input as told; does what it was told to do in a call.
class RecordingController : public UiBase::BaseViewController {
  Q_OBJECT

public:
  explicit RecordingController(QStringList* calls, UiBase::BaseView* view = nullptr, QString prefix = {})
      : BaseViewController(view), m_calls(calls), m_prefix(std::move(prefix)) {}
  ~RecordingController() override { note("~"); }

  bool consumes = true;
  bool mayClose = true;
  QHash<QString, std::function<void()>> on;

  bool mouseDoubleClick(QMouseEvent*) override { return input("mouseDoubleClick"); }
  bool mouseMove(QMouseEvent*) override { return input("mouseMove"); }
  bool mousePress(QMouseEvent*) override { return input("mousePress"); }
  bool mouseRelease(QMouseEvent*) override { return input("mouseRelease"); }
  bool mouseWheel(QWheelEvent*) override { return input("mouseWheel"); }
  bool mouseEnter(QEvent*) override { return input("mouseEnter"); }
  bool mouseLeave(QEvent*) override { return input("mouseLeave"); }
  bool mouseDragEnter(QDragEnterEvent*) override { return input("mouseDragEnter"); }
  bool mouseDragLeave(QDragLeaveEvent*) override { return input("mouseDragLeave"); }
  bool mouseDragMove(QDragMoveEvent*) override { return input("mouseDragMove"); }
  bool mouseDrop(QDropEvent*) override { return input("mouseDrop"); }
  bool keyPress(QKeyEvent*) override { return input("keyPress"); }
  bool keyRelease(QKeyEvent*) override { return input("keyRelease"); }

  void viewDidLoad() override {
    if (note("viewDidLoad"))
      BaseViewController::viewDidLoad();
  }
  void viewWillAppear() override {
    if (note("viewWillAppear"))
      BaseViewController::viewWillAppear();
  }
  void viewWillDisappear() override {
    if (note("viewWillDisappear"))
      BaseViewController::viewWillDisappear();
  }
  bool viewWillClose() override {
    const bool agrees = mayClose;
    return note("viewWillClose") && agrees ? BaseViewController::viewWillClose() : agrees;
  }
  void viewDidResize(QResizeEvent*) override { note("viewDidResize"); }
  void viewDidMove(QMoveEvent*) override { note("viewDidMove"); }

protected:
  void viewWasLost() override {
    if (note("viewWasLost"))
      BaseViewController::viewWasLost();
  }

private:
  /// @return whether the controller lived to see the end of it.
  bool note(const char* call) {
    const QPointer<RecordingController> self(this);
    const QString name = QString::fromLatin1(call);
    if (m_calls)
      m_calls->append(m_prefix + name);
    if (const auto act = on.value(name))
      act();
    return self;
  }
  bool input(const char* call) {
    const bool answer = consumes;
    note(call);
    return answer;
  }

  QStringList* m_calls;
  const QString m_prefix;
};

} // namespace Vela::Test
