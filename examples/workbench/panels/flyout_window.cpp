// SPDX-License-Identifier: MIT
#include "flyout_window.h"

#include <ui_base/commands/flyout_command.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/popups/widget_pos_calculator.h>
#include <vlk_common_res/styles.h>

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace Workbench {

using namespace Vela::UiBase;
using Vela::Resource::Styles;

namespace {

constexpr int ArrowLength = 10; // px
constexpr int CornerGap = 12;   // px from the corner

} // namespace

class FlyoutWindow::Observer : public CommandStateProtocol {
public:
  explicit Observer(FlyoutWindow& window) : m_window(&window) {}

  void commandBegan(CommandBase*) override {
    if (m_window)
      m_window->open();
  }
  // Before the window hides, when Qt would hand the focus to whatever comes next.
  void commandEnded(CommandBase*) override {
    if (m_window)
      m_window->returnFocus();
  }

private:
  const QPointer<FlyoutWindow> m_window;
};

FlyoutWindow::FlyoutWindow(FlyoutCommand& command, QWidget& layer, QWidget& corner, Opener opener)
    : QObject(&layer),
      m_opener(std::move(opener)),
      m_corner(&corner),
      m_window(new ArrowedWindow(&layer)),
      m_place(new WidgetPosCalculator(this)),
      m_observer(std::make_shared<Observer>(*this)) {
  m_window->hide();
  m_window->SetRoundCornerRadius(6);
  m_window->EnableShadow(true);
  m_window->SetArrow(ArrowTop, ArrowLength, false, 0, 90, true, 0);
  m_window->SetAutoDecideArrowPosition(true);
  m_window->AttachWidget(command.flyout());
  m_place->SetWidget(m_window);
  m_place->SetDirection(Bottom);
  m_place->SetBaseOffset(2);
  command.addObserver(m_observer, false);
  connect(&command, &QObject::destroyed, this, &QObject::deleteLater);
  layer.installEventFilter(this);
  const auto dress = [window = m_window.data()] {
    window->SetBorder(Styles::Instance().ColorActionPanelBorder(), 0, Qt::SolidLine, Qt::MiterJoin);
  };
  connect(&Styles::Instance(), &Styles::changed, m_window, dress);
  dress();
}

FlyoutWindow::~FlyoutWindow() { delete m_window; }

void FlyoutWindow::open() {
  if (!m_window)
    return;
  m_focusBefore = QApplication::focusWidget();
  place();
  m_window->show();
  m_window->raise();
}

void FlyoutWindow::returnFocus() {
  const QWidget* const focus = QApplication::focusWidget();
  if (m_focusBefore && m_window && m_window->isAncestorOf(focus))
    m_focusBefore->setFocus(Qt::OtherFocusReason);
}

void FlyoutWindow::place() {
  QWidget* const opener = m_opener ? m_opener() : nullptr;
  if (opener && opener->isVisible())
    m_place->SetRefWidget(opener);
  else if (m_corner)
    m_place->SetRefPoint(m_corner->mapToGlobal(QPoint(CornerGap, CornerGap)));
  QPoint position;
  if (m_place->GetPosition(position, QRect(), true, QPoint()))
    m_window->move(position);
}

bool FlyoutWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && m_window && m_window->isVisible())
    place();
  return QObject::eventFilter(watched, event);
}

} // namespace Workbench
