// SPDX-License-Identifier: MIT
#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/commands/command_base.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/tools/interactive_tool.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QPolygonF>

#include <cmath>

using namespace Vela::UiBase;

// Step 1: a view of our own.
class SpiralView : public BaseView {
  Q_OBJECT

public:
  SpiralView() { setWindowTitle(tr("Spiral")); }

  double angle() const { return m_angle; }
  void setAngle(double degrees) {
    m_angle = degrees;
    update();
  }

  const QPolygonF& curve() const { return m_curve; }
  void setCurve(const QPolygonF& curve) {
    m_curve = curve;
    update();
  }

protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().base());
    painter.translate(rect().center());
    painter.rotate(m_angle);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawPolyline(m_curve);
  }

private:
  QPolygonF m_curve{{QPointF(-80, 0), QPointF(80, 0)}};
  double m_angle = 0;
};

// Step 2: a tool that turns it, for the left button of the mouse.
class TurnTool : public InteractiveTool {
public:
  explicit TurnTool(SpiralView* view) : InteractiveTool(view), m_view(view) {
    setIdleCursor(Qt::OpenHandCursor);
    setOperatingCursor(Qt::ClosedHandCursor);
  }

  bool mouseMove(QMouseEvent* event) override {
    if (!InteractiveTool::mouseMove(event))
      return false; // no drag of this tool
    m_view->setAngle(m_angleBefore + event->position().x() - pressEvent().position().x());
    return true;
  }

protected:
  void startOperation() override {
    InteractiveTool::startOperation();
    m_angleBefore = m_view->angle();
  }

private:
  SpiralView* m_view;
  double m_angleBefore = 0;
};

// Step 3: a command that works on another thread.
class WindCommand : public CommandBase {
  Q_OBJECT
  COMMAND_ID(WindCommand)

public:
  WindCommand(CmdsViewController* controller, SpiralView* view) : CommandBase(controller), m_view(view) {
    setText({staticMetaObject, QT_TR_NOOP("&Wind")});
    setShortcut(Qt::CTRL | Qt::Key_W);
    setExecutionQoS(Taren::Core::NormalQoS);
    enableExecutionNotification(true);
    setExecutionNotificationMessage(StartNotification, {staticMetaObject, QT_TR_NOOP("Winding…")});
    setExecutionNotificationMessage(EndNotification, {staticMetaObject, QT_TR_NOOP("Wound.")});
  }

  bool onExecuteAsync(bool) override { // on a worker: no widgets here
    QPolygonF curve;
    for (double turn = 0; turn < 12; turn += 0.01)
      curve += QPointF(std::cos(turn * 6.28), std::sin(turn * 6.28)) * turn * 14;
    Taren::Core::dispatchAsync(
        [view = m_view, curve] {
          if (view)
            view->setCurve(curve);
        },
        Taren::Core::MainThreadQoS);
    return true;
  }

private:
  QPointer<SpiralView> m_view;
};

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  auto* view = new SpiralView;                     // deletes itself when it is closed
  auto* controller = new CmdsViewController(view); // owned by the view
  view->resize(640, 480);
  view->show();

  controller->pushTool(LeftButton, std::make_shared<TurnTool>(view));

  CommandBase* const wind = controller->addCommand(new WindCommand(controller, view));

  // Step 4: a bar with the command.
  auto* bar = new ToolBar(view, Qt::TopToolBarArea);
  bar->setAccessibleName(SpiralView::tr("Main toolbar"));
  bar->SetCentered(true);
  bar->SetOffset({0, 8}); // px from the edge
  bar->SetToolButtonStyle(Qt::ToolButtonTextOnly);
  bar->AddAction(wind, QStringLiteral("spiral"));
  bar->ShowAnimated();

  return QApplication::exec();
}

#include "main.moc"
