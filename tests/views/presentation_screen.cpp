// SPDX-License-Identifier: MIT
#include "presentation_screen.h"

#include <QHideEvent>
#include <QShowEvent>
#include <QVBoxLayout>
#include <QtTest/qtestspontaneevent.h>

namespace Vela::Test {

using namespace UiBase;

namespace {

const QHash<QString, QString> shortNames{{"viewDidLoad", "load"},
                                         {"viewWillAppear", "+"},
                                         {"viewWillDisappear", "-"},
                                         {"viewWillClose", "close"},
                                         {"viewWasLost", "lost"}};

} // namespace

PresentationScreen::PresentationScreen() {
  auto* const layout = new QVBoxLayout(&window);
  for (const QString name : {"a", "b", "c", "d"}) {
    views[name] = new BaseView;
    views[name]->setObjectName(name);
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
PresentationScreen::~PresentationScreen() {
  for (const auto& view : std::as_const(views))
    delete view;
}

QString PresentationScreen::story() {
  QStringList told;
  for (const QString& call : std::as_const(calls)) {
    const QString name = shortNames.value(call.mid(2));
    if (!name.isEmpty())
      told += call.left(2) + name;
  }
  calls.clear();
  return told.join(QStringLiteral(", "));
}

// A child hears of it from the window system like its window.
void PresentationScreen::minimise(bool minimised) {
  QList<QWidget*> widgets = window.findChildren<QWidget*>();
  for (QWidget* const widget : std::as_const(widgets)) {
    if (!widget->isVisible())
      continue;
    QHideEvent hide;
    QShowEvent show;
    QEvent* const event = minimised ? static_cast<QEvent*>(&hide) : &show;
    QSpontaneKeyEvent::setSpontaneous(event);
    QCoreApplication::instance()->notify(widget, event);
  }
}

void PresentationScreen::run(const QString& steps) {
  const QStringList list = steps.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  for (const QString& each : list) {
    const QString who = each.left(1);
    if (who == "w" || (view(who) && controller(who)))
      step(who, each.at(1), each.mid(2));
    settle();
  }
}

void PresentationScreen::step(const QString& who, QChar what, const QString& whom) {
  if (who == "w")
    return what == '^' ? window.hide() : what == 'v' ? window.show() : minimise(what == '_');
  switch (what.toLatin1()) {
  case '>':
    answer = controller(who)->presentViewController(controller(whom), FromLeft);
    break;
  case '<':
    answer = controller(who)->dismissViewController();
    break;
  case '^':
    return view(who)->hide();
  case 'v':
    return view(who)->show();
  case '/':
    return view(who)->setParent(&other);
  case '!':
    controller(who)->mayClose = false;
    break;
  case 'x':
    delete view(who);
    break;
  case 'X':
    delete controller(who);
    break;
  case 'q':
    view(who)->close();
    break;
  default:
    view(who)->setViewController(controller(whom));
  }
}

} // namespace Vela::Test
