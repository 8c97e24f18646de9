// SPDX-License-Identifier: MIT
#include "view_fuzz.h"

#include <support/test_case.h>

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <set>

namespace Vela::Test {

using namespace UiBase;

namespace {

constexpr int MaxViews = 6;
constexpr int MaxDepth = 3;
constexpr int MaxNotes = 40;

const char* const actNames[ACTS] = {"delete view", "delete controller", "delete itself", "present",
                                    "dismiss",     "reattach",          "reparent",      "nested loop",
                                    "dialog",      "close view",        "hide or show",  "push tool",
                                    "pop tool",    "begin operation",   "end operation"};

ViewFuzz* fuzz = nullptr;

class FuzzView : public BaseView {
public:
  FuzzView(QWidget* parent, Qt::CursorShape own) : BaseView(parent), ownCursor(own) { setCursor(own); }
  ~FuzzView() override { fuzz->forget(this); }

  const Qt::CursorShape ownCursor;

protected:
  bool event(QEvent* event) override {
    const bool mayDie = event->isInputEvent() && event->type() != QEvent::Enter;
    if (mayDie || event->type() == QEvent::Close)
      return BaseView::event(event);
    fuzz->enterEvent();
    const bool done = BaseView::event(event);
    fuzz->leaveEvent();
    return done;
  }
};

class FuzzController : public CmdsViewController {
public:
  FuzzController(BaseView* view, int itsNumber) : CmdsViewController(view), number(itsNumber) {}

  const int number;

  void viewDidLoad() override {
    fuzz->note(QStringLiteral("load"), this);
    around([this] { CmdsViewController::viewDidLoad(); });
  }
  void viewWillAppear() override {
    hear(Appeared);
    around([this] { CmdsViewController::viewWillAppear(); });
  }
  void viewWillDisappear() override {
    hear(Disappeared);
    around([this] { CmdsViewController::viewWillDisappear(); });
  }
  bool viewWillClose() override {
    bool may = true;
    around([&] { may = CmdsViewController::viewWillClose(); });
    return may;
  }
  bool mousePress(QMouseEvent* event) override {
    return input([=, this] { return CmdsViewController::mousePress(event); });
  }
  bool mouseMove(QMouseEvent* event) override {
    return input([=, this] { return CmdsViewController::mouseMove(event); });
  }
  bool mouseRelease(QMouseEvent* event) override {
    return input([=, this] { return CmdsViewController::mouseRelease(event); });
  }
  bool mouseDoubleClick(QMouseEvent* event) override {
    return input([=, this] { return CmdsViewController::mouseDoubleClick(event); });
  }
  bool keyPress(QKeyEvent* event) override {
    return input([=, this] { return CmdsViewController::keyPress(event); });
  }
  bool keyRelease(QKeyEvent* event) override {
    return input([=, this] { return CmdsViewController::keyRelease(event); });
  }
  bool mouseEnter(QEvent* event) override {
    return input([=, this] { return CmdsViewController::mouseEnter(event); });
  }
  bool mouseLeave(QEvent* event) override {
    return input([=, this] { return CmdsViewController::mouseLeave(event); });
  }
  bool hasAppeared() const { return m_told == Appeared; }

protected:
  bool rightClick(QMouseEvent*) override {
    fuzz->callOut(this);
    return true;
  }
  void viewWasLost() override {
    m_toldOf = nullptr;
    forgetDeadView();
    fuzz->note(QStringLiteral("lost"), this);
    fuzz->enterEvent();
    around([this] { CmdsViewController::viewWasLost(); });
    fuzz->leaveEvent();
  }

private:
  enum Told { Nothing, Appeared, Disappeared };

  void hear(Told told) {
    fuzz->note(QLatin1String(told == Appeared ? "+" : "-"), this);
    if (m_toldOf != getView())
      forgetDeadView();
    m_toldOf = getView();
    if (std::exchange(m_told, told) == told)
      fuzz->report(QStringLiteral("told twice in a row that a view %1")
                       .arg(QLatin1String(told == Appeared ? "appears" : "disappears")));
  }
  template <class Base>
  void around(Base base) {
    const QPointer<BaseViewController> self(this);
    fuzz->callOut(this);
    if (self)
      base();
    if (self)
      fuzz->callOut(this);
  }
  template <class Base>
  bool input(Base base) {
    const QPointer<BaseViewController> self(this);
    fuzz->callOut(this);
    return !self || base();
  }

  // It hears no more that it disappears.
  void forgetDeadView() {
    if (!m_toldOf && m_told == Appeared)
      m_told = Nothing;
  }

  Told m_told = Nothing;
  QPointer<BaseView> m_toldOf;
};

class FuzzTool : public InteractiveTool {
public:
  FuzzTool(BaseView* view, int number) : InteractiveTool(view) {
    const Qt::CursorShape shapes[] = {Qt::CrossCursor, Qt::WaitCursor, Qt::IBeamCursor, Qt::SizeBDiagCursor};
    setIdleCursor(shapes[number % 4]);
    setOperatingCursor(Qt::CursorShape(Qt::WhatsThisCursor + number % 4));
  }

  bool mousePress(QMouseEvent* event) override {
    callOut();
    return InteractiveTool::mousePress(event);
  }
  bool mouseMove(QMouseEvent* event) override {
    callOut();
    return InteractiveTool::mouseMove(event);
  }
  bool keyPress(QKeyEvent*) override {
    callOut();
    return false;
  }
  void activate() override {
    InteractiveTool::activate();
    tell();
  }
  void deactivate() override {
    InteractiveTool::deactivate();
    tell();
  }
  void suspend() override {
    InteractiveTool::suspend();
    tell();
  }
  void resume() override {
    InteractiveTool::resume();
    tell();
  }
  void startOperation() override {
    InteractiveTool::startOperation();
    tell();
  }
  void endOperation() override {
    InteractiveTool::endOperation();
    tell();
  }

private:
  // Also when the focus or the active window changes, where Qt holds on to windows.
  void tell() {
    const QScopedValueRollback guard(fuzz->keepsWindows, true);
    callOut();
  }
  void callOut() {
    const auto self = shared_from_this();
    fuzz->callOut(dynamic_cast<FuzzController*>(getDelegate()), this);
  }
};

/// Takes the view's input while it is begun.
class FuzzCommand : public CommandBase, public ViewResponder {
public:
  FuzzCommand(CmdsViewController* controller, int number) : CommandBase(controller), m_number(number) {}
  QString commandId() const override { return QStringLiteral("fuzz%1").arg(m_number); }
  bool onExecuteAsync(bool) override {
    fuzz->callOut(getViewController());
    return true;
  }
  void tell(void (CommandStateProtocol::*callback)(CommandBase*)) {
    broadcast([=, this](CommandStateProtocol* observer) { (observer->*callback)(this); });
  }
  bool mousePress(QMouseEvent*) override { return act(); }
  bool mouseMove(QMouseEvent*) override { return act(); }

private:
  bool act() {
    fuzz->callOut(getViewController());
    return m_number == 0;
  }

  const int m_number;
};

// Not one that is being deleted.
FuzzController* controllerOf(BaseView* view) {
  return view ? dynamic_cast<FuzzController*>(view->getViewController()) : nullptr;
}

} // namespace

std::array<int, ACTS>& ViewFuzz::hits() {
  static std::array<int, ACTS> counts{};
  return counts;
}

ViewFuzz::ViewFuzz(Bytes bytes) : m_bytes(bytes), m_edit(new QLineEdit), m_tabs(new QTabWidget) {
  fuzz = this;
  auto* const layout = new QVBoxLayout(&m_window);
  layout->addWidget(m_edit);
  layout->addWidget(m_tabs, 1);
  m_tabs->addTab(new QWidget, QStringLiteral("one"));
  m_tabs->addTab(new QWidget, QStringLiteral("two"));
  m_window.resize(300, 300);
  m_window.show();
  m_window.activateWindow();
  makeView();
  makeView();
}

ViewFuzz::~ViewFuzz() {
  m_bytes = Bytes(nullptr, 0);
  m_depth = MaxDepth; // the end is quiet
  while (!m_views.empty())
    delete m_views.back().data();
  settle();
  QTestPrivate::qtestMouseButtons = Qt::NoButton;
  QTest::mouseMove(m_window.windowHandle(), {5, 5}); // the application forgets the buttons, too
  fuzz = nullptr;
}

QString ViewFuzz::run() {
  while (!m_bytes.isEmpty() && m_findings.isEmpty()) {
    step();
    ++m_steps;
    check();
  }
  if (m_findings.isEmpty())
    return {};
  return m_findings.join(QLatin1String("; ")) + QLatin1String(" after\n") +
         m_lastActs.join(QLatin1Char('\n'));
}

void ViewFuzz::note(const QString& act, const CmdsViewController* who) {
  const auto* const controller = dynamic_cast<const FuzzController*>(who);
  m_lastActs.append(QString(m_depth * 2, QLatin1Char(' ')) + act +
                    (controller ? QStringLiteral(" %1").arg(controller->number) : QString()));
  static const bool traces = qEnvironmentVariableIsSet("VELA_FUZZ_TRACE");
  if (traces) // for a crash
    qInfo("%s", qPrintable(m_lastActs.constLast()));
  if (m_lastActs.size() > MaxNotes)
    m_lastActs.removeFirst();
}

BaseView* ViewFuzz::anyView() {
  std::erase_if(m_views, [](const View& view) { return !view; });
  return m_views.empty() ? nullptr : m_views[std::size_t(m_bytes.next(int(m_views.size())))].data();
}

CmdsViewController* ViewFuzz::anyController() { return controllerOf(anyView()); }

// A press in the line edit, in a tab or in a view of its own.
QWindow* ViewFuzz::anyWindow() {
  BaseView* const view = m_bytes.next(3) == 0 ? anyView() : nullptr;
  QWindow* const window = view ? view->window()->windowHandle() : nullptr;
  return window && window->isVisible() ? window : m_window.windowHandle();
}

void ViewFuzz::makeView() {
  std::erase_if(m_views, [](const View& view) { return !view; });
  if (m_views.size() == MaxViews)
    return;
  QWidget* const page = m_tabs->widget(m_bytes.next(2));
  const bool isWindow = m_bytes.next(4) == 3;
  const QPointer<FuzzView> view =
      new FuzzView(isWindow ? nullptr : page, m_bytes.next(2) ? Qt::ForbiddenCursor : Qt::ArrowCursor);
  m_views.emplace_back(view.data());
  auto* const controller = new FuzzController(view, ++m_made);
  note(QStringLiteral("new"), controller);
  const QPointer<BaseViewController> alive(controller);
  view->setGeometry(0, 0, 150, 150);
  for (const auto button : {LeftButton, RightButton, MiddleButton}) {
    if (alive && view)
      controller->pushTool(button, std::make_shared<FuzzTool>(view, int(button)));
  }
  for (int i = 0; i < 2 && alive; ++i)
    controller->addCommand(new FuzzCommand(controller, i));
  if (view)
    view->show();
}

void ViewFuzz::step() {
  switch (m_bytes.next(8)) {
  case 0:
    return widgetStep();
  case 1:
    return commandStep();
  case 2:
    return act(Act(m_bytes.next(ACTS)), anyController(), nullptr);
  default:
    return mouse();
  }
}

void ViewFuzz::mouse() {
  note(QStringLiteral("mouse"));
  const Qt::MouseButton button =
      std::array{Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}[m_bytes.next(3)];
  const int what = m_bytes.next(8);
  const QPointer<QWindow> window = anyWindow();
  // After a press of the right button Qt asks for a context menu there, also when the view is gone.
  const bool presses = what == 1 || !QTestPrivate::qtestMouseButtons.testFlag(button);
  const bool asksForMenu = button == Qt::RightButton && presses;
  m_events += asksForMenu;
  const QPoint at((10 + m_bytes.next(64) * 3) % window->width(),
                  (60 + m_bytes.next(32) * 3) % window->height());
  if (what == 0)
    QTest::keyClick(window, Qt::Key_K);
  else if (what == 1) // it has a second press and release of its own, which only the main window survives
    QTest::mouseDClick(m_window.windowHandle(), button, {}, at);
  else if (what < 4)
    QTest::mouseMove(window, at);
  else if (QTestPrivate::qtestMouseButtons.testFlag(button))
    QTest::mouseRelease(window, button, {}, at);
  else
    QTest::mousePress(window, button, {}, at);
  m_events -= asksForMenu;
}

void ViewFuzz::widgetStep() {
  const int what = m_bytes.next(8);
  note(QStringLiteral("widget %1").arg(what));
  const QScopedValueRollback walk(m_events, m_events + (what < 7));
  switch (what) {
  case 0:
    return makeView();
  case 1:
    return m_tabs->setCurrentIndex(1 - m_tabs->currentIndex());
  case 2:
    return m_edit->setFocus();
  case 3:
    m_window.setWindowState(m_window.windowState() ^ Qt::WindowMinimized);
    return;
  case 4:
    m_tabs->setEnabled(!m_tabs->isEnabled());
    return;
  case 5:
    m_window.activateWindow();
    return;
  case 6:
    if (BaseView* const view = anyView())
      view->setFocus();
    return;
  default:
    settle();
  }
}

void ViewFuzz::commandStep() {
  CmdsViewController* const controller = anyController();
  auto* const found =
      controller ? controller->findCommand(QStringLiteral("fuzz%1").arg(m_bytes.next(2))) : nullptr;
  const auto command = Taren::Objects::adoptShared(static_cast<FuzzCommand*>(found));
  if (!command)
    return;
  switch (m_bytes.next(3)) {
  case 0:
    return command->tell(&CommandStateProtocol::commandBegan);
  case 1:
    return command->tell(&CommandStateProtocol::commandEnded);
  default:
    return command->trigger();
  }
}

void ViewFuzz::callOut(CmdsViewController* controller, InteractiveTool* itself) {
  if (m_depth >= MaxDepth || m_bytes.next(4) != 3)
    return;
  ++m_depth;
  act(Act(m_bytes.next(ACTS)), m_bytes.next(3) ? controller : anyController(), itself);
  --m_depth;
}

// Views may be deleted, moved and wait for events where they hand on input, and where their controllers hear
// of them without Qt; while Qt shows, hides or focuses one after the other it holds on to all of them.
void ViewFuzz::endView(BaseView* view, QObject* object) {
  const bool isHeld = m_events > 0 || m_deletes > 0 || (keepsWindows && view && view->isWindow());
  if (isHeld && object)
    return object->deleteLater();
  const QScopedValueRollback deletes(m_deletes, m_deletes + 1); // not what it stands in
  delete object;
}

void ViewFuzz::act(Act act, CmdsViewController* controller, InteractiveTool* itself) {
  const bool movesViews = act == Reparent || act == NestedLoop || act == Dialog; // or lets deleted ones die
  if (!controller || (movesViews && (m_events > 0 || keepsWindows)))
    return;
  hits()[std::size_t(act)] += m_depth > 0;
  note(QLatin1String(actNames[act]), controller);
  const bool showsViews =
      act == Present || act == Dismiss || act == Reparent || act == CloseView || act == HideOrShow;
  const QScopedValueRollback walk(m_events, m_events + showsViews);
  const QPointer<BaseView> view = controller->getView();
  const auto button = std::array{NoButton, LeftButton, RightButton, MiddleButton}[m_bytes.next(4)];
  switch (act) {
  case DeleteView:
    return endView(view, view);
  case DeleteController:
    return endView(view, controller);
  case DeleteItself:
    for (const HeldTool& held : controller->heldTools()) {
      if (held.tool.get() == itself && controller->getTool(held.button) == held.tool)
        controller->popTool(held.button);
    }
    return;
  case Present:
    return present(*controller);
  case Dismiss:
    controller->dismissViewController();
    return;
  case Reattach:
    return reattach(*controller);
  case Reparent:
    return view ? reparent(*view) : void();
  case NestedLoop: {
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
    return;
  }
  case Dialog:
    return openDialog();
  case CloseView:
    controller->close();
    return;
  case HideOrShow:
    return view && view->isVisible() ? controller->hide() : controller->show();
  case PushTool:
    if (m_tools.size() < 8 && view)
      m_tools.push_back(std::make_shared<FuzzTool>(view, int(m_tools.size())));
    if (!m_tools.empty())
      controller->pushTool(button, m_tools[std::size_t(m_bytes.next(int(m_tools.size())))]);
    return;
  case PopTool:
    controller->popTool(button);
    return;
  case BeginOperation:
    if (const auto tool = controller->getTool(button))
      static_cast<FuzzTool&>(*tool).startOperation();
    return;
  case EndOperation:
    return controller->endRunningOperation();
  case ACTS:
    return;
  }
}

void ViewFuzz::present(BaseViewController& controller) {
  CmdsViewController* const other = anyController();
  note(QStringLiteral("…this one:"), other);
  const bool isWindow = other && other->getView() && other->getView()->isWindow();
  if (other && !(keepsWindows && isWindow))
    controller.presentViewController(other, FromRight);
}

void ViewFuzz::reattach(CmdsViewController& controller) {
  BaseView* const view = m_bytes.next(4) ? anyView() : nullptr;
  note(QStringLiteral("…to the view of"), controllerOf(view));
  controller.setView(view);
}

// Into a tab, or on its own.
void ViewFuzz::reparent(BaseView& view) {
  const QPointer<BaseView> alive(&view);
  view.setParent(m_bytes.next(3) ? m_tabs->widget(m_bytes.next(2)) : nullptr);
  if (alive)
    view.show();
}

void ViewFuzz::openDialog() {
  QDialog dialog(&m_window);
  dialog.setModal(true);
  dialog.show();
  QCoreApplication::processEvents();
}

void ViewFuzz::check() {
  const auto views = m_views;
  for (const View& view : views) {
    if (!view)
      continue;
    checkPresentation(*view);
    checkCursor(*view);
    if (CmdsViewController* const controller = controllerOf(view))
      checkTools(*controller);
  }
  checkFocus();
  if (QApplication::overrideCursor())
    report(QStringLiteral("a busy cursor is left"));
}

void ViewFuzz::checkPresentation(const BaseView& view) {
  const QList<PresentedView> layers = view.presentation();
  int appeared = 0;
  int fronts = 0;
  bool found = false;
  const QWidget* const focus = QApplication::focusWidget();
  for (const PresentedView& layer : layers) {
    found |= layer.view == &view;
    appeared += layer.appeared;
    fronts += !layer.covered;
    if (layer.covered && layer.appeared)
      report(QStringLiteral("a covered view has appeared"));
    const bool isOwn = layer.controller && layer.controller->getView() == layer.view;
    if (!layer.covered && isOwn && layer.controller->isLoaded() && layer.view->isVisible() &&
        !layer.appeared && !layer.view->window()->isMinimized())
      report(QStringLiteral("the view in front has not appeared"));
    if (focus && layer.covered && layer.view && layer.view->isAncestorOf(focus)) {
      const auto* within = focus;
      while (within != layer.view && !qobject_cast<const BaseView*>(within))
        within = within->parentWidget();
      if (within == layer.view)
        report(QStringLiteral("the focus is in a covered view"));
    }
    if (focus && layer.covered && layer.view == focus)
      report(QStringLiteral("a covered view has the focus"));
  }
  if (!found)
    report(QStringLiteral("a view is not in its own presentation"));
  if (appeared > 1 || fronts > 1)
    report(QStringLiteral("%1 views have appeared, %2 are in front").arg(appeared).arg(fronts));
  std::set<const BaseViewController*> seen;
  for (const auto* presenter = view.getViewController(); presenter; presenter = presenter->presenter()) {
    if (!seen.insert(presenter).second)
      return report(QStringLiteral("presenters present one another"));
  }
}

void ViewFuzz::checkTools(CmdsViewController& controller) {
  int operating = 0;
  const auto held = controller.heldTools();
  for (const HeldTool& entry : held) {
    operating += entry.tool->isOperating();
    if (entry.tool->getDelegate() != &controller)
      report(QStringLiteral("a tool lies on two stacks"));
    if (std::count_if(held.begin(), held.end(), [&](const auto& other) { return other.tool == entry.tool; }) >
        1)
      report(QStringLiteral("a tool lies twice on a stack"));
  }
  if (operating > 1)
    report(QStringLiteral("%1 tools operate").arg(operating));
  for (const HeldTool& entry : held) {
    const bool waits = entry.button == LeftButton && operating > 0;
    const bool rests = controller.getTool(entry.button) == entry.tool && !waits;
    if (!entry.tool->isOperating() && entry.tool->isActive() != rests)
      report(QStringLiteral("a tool is %1").arg(QLatin1String(rests ? "not active" : "active")));
  }
}

// Its own, unless it has appeared and its controller has tools.
void ViewFuzz::checkCursor(const BaseView& view) {
  Qt::CursorShape expected = static_cast<const FuzzView&>(view).ownCursor;
  auto* const controller = dynamic_cast<FuzzController*>(view.getViewController());
  if (controller) {
    if (controller->getView() != &view || !controller->hasAppeared())
      return;
    if (const auto operating = controller->getOperatingTool())
      expected = operating->getOperatingCursor().shape();
    else if (const auto primary = controller->getTool(LeftButton))
      expected = primary->getIdleCursor().shape();
  }
  if (view.cursor().shape() != expected)
    report(QStringLiteral("the cursor is %1, not %2").arg(view.cursor().shape()).arg(expected));
}

// A window that shows a view which can take the focus is never without one.
void ViewFuzz::checkFocus() {
  if (!m_window.isActiveWindow() || m_window.focusWidget() || !m_tabs->isEnabled())
    return;
  for (const View& view : m_views) {
    if (view && view->window() == &m_window && view->isVisible())
      return report(QStringLiteral("nothing has the focus"));
  }
}

} // namespace Vela::Test
