// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/base_view_controller.h>

#include <QEvent>
#include <QStringList>

namespace Vela::Test {

/// Writes down every call and declines or consumes input as told.
class RecordingController : public UiBase::BaseViewController {
  Q_OBJECT

public:
  explicit RecordingController(QStringList* calls, UiBase::BaseView* view = nullptr)
      : BaseViewController(view), m_calls(calls) {}
  ~RecordingController() override { note("~"); }

  bool consumes = true;
  bool mayClose = true;

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
    note("viewDidLoad");
    BaseViewController::viewDidLoad();
  }
  void viewWillAppear() override {
    note("viewWillAppear");
    BaseViewController::viewWillAppear();
  }
  void viewWillDisappear() override {
    note("viewWillDisappear");
    BaseViewController::viewWillDisappear();
  }
  bool viewWillClose() override {
    note("viewWillClose");
    return mayClose && BaseViewController::viewWillClose();
  }
  void viewDidResize(QResizeEvent*) override { note("viewDidResize"); }
  void viewDidMove(QMoveEvent*) override { note("viewDidMove"); }

private:
  void note(const char* call) {
    if (m_calls)
      m_calls->append(QString::fromLatin1(call));
  }
  bool input(const char* call) {
    note(call);
    return consumes;
  }

  QStringList* m_calls;
};

} // namespace Vela::Test
