// SPDX-License-Identifier: MIT
#pragma once

#include <support/input.h>
#include <support/rows.h>
#include <ui_base/notifications/notification_bar.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/base_view_controller.h>
#include <ui_base/views/tabbed_app.h>

#include <QtTest/qtestspontaneevent.h>

#include <functional>
#include <vector>

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
  bool mouseLeave(QEvent*) override { return !note("leave"); }
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

struct PageApp : UiBase::TabbedApp {
  using TabbedApp::setRootViewController;
  Taren::Core::ERcmStatus Initialize() override { return Taren::Core::RcmSuccess; }
  QString ServiceName() const override { return QStringLiteral("pages"); }
};

/// A window with the view a; b and c are windows of their own, d stands in another window; of these none is
/// shown. Each has a controller of its name.
class PresentationScreen {
public:
  explicit PresentationScreen(QWidget* its = new QWidget) : window(*its) {
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    auto* const layout = new QVBoxLayout(&window);
    for (const QString name : {"a", "b", "c", "d"}) {
      views[name] = new UiBase::BaseView;
      controllers[name] = new RecordingController(&calls, views[name], name);
    }
    layout->addWidget(views["a"]);
    (new QVBoxLayout(&other))->addWidget(views["d"]);
    window.resize(300, 200);
    showActive(window);
    calls.clear();
  }
  ~PresentationScreen() {
    for (const auto& view : std::as_const(views))
      delete view;
    delete &window;
  }
  Q_DISABLE_COPY_MOVE(PresentationScreen)

  UiBase::BaseView* view(const QString& name) const { return views.value(name); }
  RecordingController* controller(const QString& name) const { return controllers.value(name); }
  QWindow* handle() const { return window.windowHandle(); }

  /// What was called since the last time: "b load, b +".
  QString story() { return std::exchange(calls, {}).join(QStringLiteral(", ")); }
  /// Who lives: "aA" is a view and its controller, "b*" a controller that has no view.
  QString alive() const {
    QStringList alive;
    for (const QString name : {"a", "b", "c", "d"}) {
      const RecordingController* const its = controller(name);
      alive += (view(name) ? name : QString()) + (its ? its->getView() ? name.toUpper() : "*" : QString());
    }
    alive.removeAll(QString());
    return alive.join(QLatin1Char(' '));
  }

  /// The presentation of a view: "a a>b+" is a, which presents b, which has appeared.
  QString layers(const QString& name) const {
    QStringList layers;
    const QList<UiBase::PresentedView> presentation = view(name)->presentation();
    for (const UiBase::PresentedView& layer : presentation)
      layers += views.key(layer.presenter) + (layer.direction == UiBase::FromLeft ? ">" : "") +
                views.key(layer.view) + (layer.appeared ? "+" : "");
    return layers.join(QLatin1Char(' '));
  }
  /// In which views a notification is seen.
  QString notices() const {
    QString seen;
    for (const QString name : {"a", "b", "c", "d"}) {
      const auto* const bar = view(name) ? view(name)->findChild<UiBase::NotificationBar*>() : nullptr;
      seen += bar && bar->isVisible() ? name : QString();
    }
    return seen;
  }

  /// Does steps: "a>b" (a presents b), "b<" (dismiss), "b^" (hide), "bv" (show), "b/" (into the other
  /// window), "b!" (refuses to close from now on), "bx" (delete the view), "bX" (the controller), "bq"
  /// (close), "b~" (is kept when it is closed), "b=c" (its view gets the controller c), "b@c" (lies in c),
  /// "bf" (takes the focus), "bn" (notifies), "bR" (is the application's root), "b&" (its controller is
  /// held), "w^", "wv", "w_", "w=", "wq", "we", "w%", "wR" (hide, show, minimise, restore, close and escape
  /// the window, hold nothing any more, end the application).
  void run(const QString& steps) {
    const QStringList list = steps.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& each : list) {
      if (each[0] == 'w')
        windowStep(each[1]);
      else if (view(each.left(1)))
        step(view(each.left(1)), controller(each.left(1)), each[1], each.mid(2));
      lostFocus |= window.isActiveWindow() && !window.focusWidget();
      settle();
    }
  }

  QWidget& window;
  QWidget other;
  QStringList calls;
  QHash<QString, QPointer<UiBase::BaseView>> views;
  QHash<QString, QPointer<RecordingController>> controllers;
  std::unique_ptr<PageApp> app = std::make_unique<PageApp>();
  std::vector<std::shared_ptr<UiBase::BaseViewController>> held;
  QString answers; // "1" or "0" of each request to present or dismiss and to close the window
  bool rootIsTaken = true;
  bool lostFocus = false; // of the window, after some step

private:
  void answered(bool answer) { answers += answer ? '1' : '0'; }
  void windowStep(QChar what) {
    if (what == 'q')
      return answered(window.close());
    if (what == 'e')
      return QTest::keyPress(handle(), Qt::Key_Escape);
    if (what == '%')
      return held.clear();
    if (what == 'R')
      return app.reset();
    if (what == '^' || what == 'v')
      return window.setVisible(what == 'v');
    // A child hears of it from the window system like its window.
    const QList<QWidget*> widgets = window.findChildren<QWidget*>();
    for (QWidget* const widget : widgets) {
      QHideEvent hide;
      QShowEvent show;
      QEvent* const event = what == '_' ? static_cast<QEvent*>(&hide) : &show;
      QSpontaneKeyEvent::setSpontaneous(event);
      if (widget->isVisible())
        QCoreApplication::instance()->notify(widget, event);
    }
  }

  void step(UiBase::BaseView* its, RecordingController* itself, QChar what, const QString& whom) {
    const QHash<QChar, std::function<void()>> steps{
        {'>', [&] { answered(itself->presentViewController(controller(whom), UiBase::FromLeft)); }},
        {'<', [&] { answered(itself->dismissViewController()); }},
        {'^', [&] { its->hide(); }},
        {'v', [&] { its->show(); }},
        {'/', [&] { its->setParent(&other); }},
        {'!', [&] { itself->mayClose = false; }},
        {'x', [&] { delete its; }},
        {'X', [&] { delete itself; }},
        {'q', [&] { its->close(); }},
        {'~', [&] { its->setAttribute(Qt::WA_DeleteOnClose, false); }},
        {'=', [&] { its->setViewController(controller(whom)); }},
        {'@', [&] { (its->setParent(view(whom)), its->show()); }},
        {'f', [&] { its->setFocus(); }},
        {'n', [&] { itself->showNotification("Saved.", UiBase::FadeInOnly, 3000); }},
        {'R', [&] { (app->setRootViewController(itself), rootIsTaken &= app->getVC() == itself); }},
        {'&', [&] { held.push_back(itself->shared_from_this()); }}};
    steps[what]();
  }
};

} // namespace Vela::Test
