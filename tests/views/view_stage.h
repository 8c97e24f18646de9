// SPDX-License-Identifier: MIT
#pragma once

#include "recording_controller.h"

#include <support/test_case.h>
#include <ui_base/views/base_view.h>

#include <QPointer>

namespace Vela::Test {

/// A view that is seen in a window of its own, and another one that is not shown yet. Each has a controller
/// that writes down its calls.
struct ViewStage {
  QStringList calls;
  QStringList otherCalls;
  QPointer<UiBase::BaseView> view = new UiBase::BaseView;
  QPointer<UiBase::BaseView> otherView = new UiBase::BaseView;
  QPointer<RecordingController> controller = new RecordingController(&calls, view);
  QPointer<RecordingController> other = new RecordingController(&otherCalls, otherView);

  ViewStage() {
    view->resize(300, 200);
    view->show();
    [[maybe_unused]] const bool exposed = QTest::qWaitForWindowExposed(view);
    settle();
    calls.clear();
  }
  ~ViewStage() {
    delete otherView;
    delete view;
  }
  Q_DISABLE_COPY_MOVE(ViewStage)
};

/// A view on the stack, which closing does not delete.
struct LocalView : UiBase::BaseView {
  explicit LocalView(QWidget* parent = nullptr) : UiBase::BaseView(parent) {
    setAttribute(Qt::WA_DeleteOnClose, false);
  }
};

} // namespace Vela::Test
