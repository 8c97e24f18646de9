// SPDX-License-Identifier: MIT
#pragma once

#include "recording_controller.h"

#include <support/test_case.h>
#include <ui_base/views/base_view.h>

#include <QHash>
#include <QPointer>
#include <QWidget>

namespace Vela::Test {

/// A window with the view a; b, c and d are not presented yet. d stands in another window.
class PresentationScreen {
public:
  PresentationScreen();
  ~PresentationScreen();
  Q_DISABLE_COPY_MOVE(PresentationScreen)

  UiBase::BaseView* view(const QString& name) const { return views[name]; }
  RecordingController* controller(const QString& name) const { return controllers[name]; }
  /// What the controllers heard of their views' lives since the last time: "b load, b +".
  QString story();
  /// Does steps: "a>b" (a presents b), "b<" (dismiss), "b^" (hide), "bv" (show), "b/" (into the other
  /// window), "b!" (refuses to close from now on), "bx" (delete the view), "bX" (the controller), "bq"
  /// (close), "b=c" (its view gets the controller c), "w^", "wv", "w_", "w=" (hide, show, minimise and
  /// restore the window).
  void run(const QString& steps);

  QWidget window;
  QWidget other;
  QStringList calls;
  QHash<QString, QPointer<UiBase::BaseView>> views;
  QHash<QString, QPointer<RecordingController>> controllers;
  bool answer = false; // of the last request to present or dismiss

private:
  void step(const QString& who, QChar what, const QString& whom);
  void minimise(bool minimised);
};

} // namespace Vela::Test
