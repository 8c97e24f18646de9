// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/base_view_controller.h>

#include <QHash>
#include <QStringList>

#include <functional>

namespace Vela::Test {

/// Writes down every call and declines input; does what it was told to do in a call.
class RecordingController : public UiBase::BaseViewController {
  Q_OBJECT

public:
  explicit RecordingController(QStringList* calls, UiBase::BaseView* view = nullptr, QString prefix = {})
      : BaseViewController(view), m_calls(calls), m_prefix(std::move(prefix)) {}
  ~RecordingController() override { note("~"); }

  bool mayClose = true;
  QHash<QString, std::function<void()>> on;

  bool mousePress(QMouseEvent*) override { return !note("mousePress"); }
  bool mouseDoubleClick(QMouseEvent*) override { return !note("mouseDoubleClick"); }
  bool keyPress(QKeyEvent*) override { return !note("keyPress"); }
  bool keyRelease(QKeyEvent*) override { return !note("keyRelease"); }

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

  QStringList* m_calls;
  const QString m_prefix;
};

} // namespace Vela::Test
