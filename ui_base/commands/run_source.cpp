// SPDX-License-Identifier: MIT
#include "run_source.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/core/application_events.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QMenu>
#include <QPointer>

namespace Vela::UiBase {

namespace {

QPointer<InputWatch>& theWatch() {
  static QPointer<InputWatch> watch;
  return watch;
}

ERunSource sourceIn(const QObject* watched, ERunSource otherwise) {
  return qobject_cast<const QMenu*>(watched) ? RunByMenu : otherwise;
}

} // namespace

InputWatch::InputWatch(QObject* application) : QObject(application) {
  ApplicationEvents::watch(*this,
                           {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                            QEvent::Wheel, QEvent::Drop, QEvent::KeyPress, QEvent::KeyRelease,
                            QEvent::Shortcut, QEvent::Timer, QEvent::MetaCall, QEvent::DeferredDelete});
  if (const auto* const loop = QAbstractEventDispatcher::instance(thread()))
    connect(loop, &QAbstractEventDispatcher::awake, this, [this] { m_source = RunByProgram; });
}

void InputWatch::start() {
  if (!theWatch() && qApp && Taren::Core::isMainThread())
    theWatch() = new InputWatch(qApp);
}

ERunSource InputWatch::source() {
  const bool watches = Taren::Core::isMainThread() && theWatch();
  return watches ? theWatch()->m_source : RunByProgram;
}

bool InputWatch::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseButtonDblClick:
  case QEvent::Wheel:
  case QEvent::Drop:
    if (watched->isWidgetType())
      m_source = sourceIn(watched, RunByMouse);
    break;
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
    if (watched->isWidgetType())
      m_source = sourceIn(watched, RunByKey);
    break;
  case QEvent::Shortcut:
    m_source = sourceIn(watched, RunByKey);
    break;
  case QEvent::Timer:
  case QEvent::MetaCall:
  case QEvent::DeferredDelete:
    m_source = RunByProgram;
    break;
  default:
    break;
  }
  return false;
}

} // namespace Vela::UiBase
