// SPDX-License-Identifier: MIT
#include "view_fuzz_actors.h"

#include <vlk_app_service/application_service.h>

namespace Vela::Test {

using namespace UiBase;

namespace {

constexpr int MaxViews = 6;
constexpr int MaxNotes = 40;

qsizetype shutdownDelegates() {
  return Services::ApplicationService::GetInstance().shutdownProtocolDelegateCount();
}

} // namespace

ViewFuzz::ViewFuzz(Bytes bytes)
    : m_bytes(std::move(bytes)),
      m_shutdownDelegates(shutdownDelegates()),
      m_edit(new QLineEdit),
      m_tabs(new QTabWidget) {
  fuzz = this;
  m_edit->setContextMenuPolicy(Qt::NoContextMenu);
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
  m_bytes = Bytes({});
  m_depth = MaxDepth; // the end is quiet
  while (!m_views.empty())
    delete m_views.back().data();
  settle();
  if (shutdownDelegates() != m_shutdownDelegates)
    qFatal("a controller without a view still is a delegate of the shutdown");
  holdUnheard(Qt::NoButton);
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
    checkUse();
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
  if (m_views.size() == MaxViews)
    return;
  QWidget* const page = m_tabs->widget(m_bytes.next(2));
  const bool isWindow = m_bytes.next(4) == 3;
  const QPointer<FuzzView> view = new FuzzView(
      isWindow ? nullptr : page, m_bytes.next(2) ? Qt::ForbiddenCursor : Qt::ArrowCursor, ++m_made);
  m_views.emplace_back(view.data());
  auto* const controller = new FuzzController(view, m_made);
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
  const int what = m_bytes.next(8);
  if (what == 0)
    widgetStep();
  else if (what == 1)
    commandStep();
  else if (what < 4)
    act(anyController(), nullptr);
  else
    mouse();
}

void ViewFuzz::mouse() {
  note(QStringLiteral("mouse"));
  const Qt::MouseButton button =
      std::array{Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}[m_bytes.next(3)];
  const int what = m_bytes.next(9);
  const QPointer<QWindow> window = m_inputWindow = anyWindow();
  // After a press of the right button Qt asks for a context menu there, also when the view is gone.
  const bool presses = what == 1 || !QTestPrivate::qtestMouseButtons.testFlag(button);
  const bool asksForMenu = button == Qt::RightButton && presses;
  events += asksForMenu;
  const QPoint at((10 + m_bytes.next(64) * 3) % window->width(),
                  (60 + m_bytes.next(32) * 3) % window->height());
  if (what == 8)
    holdUnheard(Qt::NoButton);
  else if (what == 0)
    QTest::keyClick(window, Qt::Key_K);
  else if (what == 1) // it has a second press and release of its own, which only the main window survives
    QTest::mouseDClick(m_window.windowHandle(), button, {}, at);
  else if (what < 4)
    QTest::mouseMove(window, at);
  else if (QTestPrivate::qtestMouseButtons.testFlag(button))
    QTest::mouseRelease(window, button, {}, at);
  else
    QTest::mousePress(window, button, {}, at);
  events -= asksForMenu;
}

void ViewFuzz::widgetStep() {
  const std::function<void()> steps[] = {
      [&] { makeView(); },
      [&] { m_tabs->setCurrentIndex((m_tabs->currentIndex() + 1) % m_tabs->count()); },
      [&] { m_edit->setFocus(); },
      [&] {
        m_window.setWindowState(m_window.windowState() ^ Qt::WindowMinimized);
        m_window.windowHandle()->resize(300, 300); // which the offscreen platform forgets
      },
      [&] { m_tabs->setEnabled(!m_tabs->isEnabled()); },
      [&] { m_window.activateWindow(); },
      [&] {
        if (BaseView* const view = anyView())
          view->setFocus();
      },
      [&] { m_window.resize(280 + 10 * m_bytes.next(6), 300); },
      [&] {
        m_window.close();
        m_window.show();
      },
      [&] { settle(); }};
  const int what = m_bytes.next(int(std::size(steps)));
  note(QStringLiteral("widget %1").arg(what));
  const QScopedValueRollback walk(events, events + (what < 8));
  steps[what]();
}

void ViewFuzz::commandStep() {
  CmdsViewController* const controller = anyController();
  auto* const found =
      controller ? controller->findCommand(QStringLiteral("fuzz%1").arg(m_bytes.next(2))) : nullptr;
  const auto command = Taren::Objects::adoptShared(static_cast<FuzzCommand*>(found));
  const int what = command ? m_bytes.next(3) : 0;
  if (what == 2)
    command->trigger();
  else if (command)
    command->tell(what ? &CommandStateProtocol::commandEnded : &CommandStateProtocol::commandBegan);
}

} // namespace Vela::Test
