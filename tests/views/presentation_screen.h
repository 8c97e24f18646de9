// SPDX-License-Identifier: MIT
#pragma once

#include "recording_controller.h"

#include <support/test_case.h>
#include <ui_base/views/base_view.h>

#include <QHideEvent>
#include <QPointer>
#include <QShowEvent>
#include <QVBoxLayout>
#include <QtTest/qtestspontaneevent.h>

namespace Vela::Test {

/// A window with the view a; b, c and d are not presented yet. d stands in another window.
class PresentationScreen {
public:
  PresentationScreen() {
    auto* const layout = new QVBoxLayout(&window);
    for (const QString name : {"a", "b", "c", "d"}) {
      views[name] = new UiBase::BaseView;
      controllers[name] = new RecordingController(&calls, views[name], name + QLatin1Char(' '));
    }
    layout->addWidget(views["a"]);
    (new QVBoxLayout(&other))->addWidget(views["d"]);
    window.resize(300, 200);
    window.show();
    window.activateWindow();
    [[maybe_unused]] const bool active = QTest::qWaitForWindowActive(&window);
    calls.clear();
  }
  ~PresentationScreen() {
    for (const auto& view : std::as_const(views))
      delete view;
  }
  Q_DISABLE_COPY_MOVE(PresentationScreen)

  UiBase::BaseView* view(const QString& name) const { return views[name]; }
  RecordingController* controller(const QString& name) const { return controllers[name]; }

  /// What the controllers heard of their views' lives since the last time: "b load, b +".
  QString story() {
    const QHash<QString, QString> shortNames{{"viewDidLoad", "load"},
                                             {"viewWillAppear", "+"},
                                             {"viewWillDisappear", "-"},
                                             {"viewWillClose", "close"},
                                             {"viewWasLost", "lost"}};
    QStringList told;
    const QStringList heard = std::exchange(calls, {});
    for (const QString& call : heard) {
      if (const QString name = shortNames.value(call.mid(2)); !name.isEmpty())
        told += call.left(2) + name;
    }
    return told.join(QStringLiteral(", "));
  }

  /// Does steps: "a>b" (a presents b), "b<" (dismiss), "b^" (hide), "bv" (show), "b/" (into the other
  /// window), "b!" (refuses to close from now on), "bx" (delete the view), "bX" (the controller), "bq"
  /// (close), "b~" (is kept when it is closed), "b=c" (its view gets the controller c), "b@c" (lies in c),
  /// "bf" (takes the focus), "w^", "wv", "w_", "w=" (hide, show, minimise and restore the window).
  void run(const QString& steps) {
    const QStringList list = steps.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& each : list) {
      const QString who = each.left(1);
      if (who == "w")
        windowStep(each.at(1));
      else if (view(who) && controller(who))
        step(*view(who), *controller(who), each.at(1), each.mid(2));
      lostFocus |= window.isActiveWindow() && !window.focusWidget();
      settle();
    }
  }

  QWidget window;
  QWidget other;
  QStringList calls;
  QHash<QString, QPointer<UiBase::BaseView>> views;
  QHash<QString, QPointer<RecordingController>> controllers;
  bool answer = false;    // of the last request to present or dismiss
  bool lostFocus = false; // of the window, after some step

private:
  void windowStep(QChar what) {
    if (what == '^' || what == 'v')
      return window.setVisible(what == 'v');
    // A child hears of it from the window system like its window.
    const QList<QWidget*> widgets = window.findChildren<QWidget*>();
    for (QWidget* const widget : widgets) {
      if (!widget->isVisible())
        continue;
      QHideEvent hide;
      QShowEvent show;
      QEvent* const event = what == '_' ? static_cast<QEvent*>(&hide) : &show;
      QSpontaneKeyEvent::setSpontaneous(event);
      QCoreApplication::instance()->notify(widget, event);
    }
  }

  void step(UiBase::BaseView& itsView, RecordingController& itself, QChar what, const QString& whom) {
    switch (what.toLatin1()) {
    case '>':
      answer = itself.presentViewController(controller(whom), UiBase::FromLeft);
      break;
    case '<':
      answer = itself.dismissViewController();
      break;
    case '^':
    case 'v':
      return itsView.setVisible(what == 'v');
    case '@':
      itsView.setParent(view(whom));
      return itsView.show();
    case '/':
      return itsView.setParent(&other);
    case 'f':
      return itsView.setFocus();
    case '!':
      itself.mayClose = false;
      break;
    case 'x':
      delete &itsView;
      break;
    case 'X':
      delete &itself;
      break;
    case 'q':
      itsView.close();
      break;
    case '~':
      return itsView.setAttribute(Qt::WA_DeleteOnClose, false);
    default:
      itsView.setViewController(controller(whom));
    }
  }
};

} // namespace Vela::Test
