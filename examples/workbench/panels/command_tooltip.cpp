// SPDX-License-Identifier: MIT
#include "command_tooltip.h"

#include <ui_base/popups/arrowed_window.h>
#include <ui_base/tooltips/tooltip_ex.h>
#include <ui_base/tooltips/tooltip_ex_factory.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/commands/command_help.h>

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPointer>

#include <algorithm>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr int PictureSize = 56;   // px
constexpr int DetailsWidth = 220; // px
constexpr int Gap = 3;            // px, to the edge of the window

// Painted each time, so that it follows the palette and the screen.
class Picture : public QWidget {
public:
  Picture(const QIcon& icon, QWidget* parent) : QWidget(parent), m_icon(icon) {
    setFixedSize(PictureSize, PictureSize);
  }

protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    m_icon.paint(&painter, rect());
  }

private:
  const QIcon m_icon;
};

QWidget* makeSection(const CommandHelp& help) {
  auto* const section = new QWidget;
  auto* const row = new QHBoxLayout(section);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(10);
  if (!help.picture.isEmpty())
    row->addWidget(new Picture(QtUiToolkit::Instance().CreateIcon(help.picture), section), 0, Qt::AlignTop);
  auto* const details = new QLabel(help.details, section);
  details->setTextFormat(Qt::PlainText);
  details->setWordWrap(true);
  details->setFixedWidth(DetailsWidth);
  row->addWidget(details);
  return section;
}

} // namespace

CommandTooltip::CommandTooltip(QWidget& button, const QAction& command)
    : TooltipObject(CommandTooltips, &button) {
  const auto make = [command = QPointer<const QAction>(&command)]() -> QWidget* {
    TooltipEx* const content = TooltipExFactory::Create(command);
    if (!content)
      return nullptr;
    const CommandHelp help = commandHelp(*command);
    if (!help.details.isEmpty())
      content->SetAdvancedWidget(makeSection(help));
    return content;
  };
  SetTooltipType(RichTooltip);
  SetTooltipFactory(make, TooltipExFactory::Description(&command), true);
  AttachTo(&button);
  button.setFocusPolicy(Qt::TabFocus);
}

bool CommandTooltip::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Move && watched != AttachedWidget())
    if (auto* const window = qobject_cast<ArrowedWindow*>(watched))
      keepInWindow(*window);
  return TooltipObject::eventFilter(watched, event);
}

// Nearer to the edge of the window than popups are placed, no arrow fits: the tooltip is moved in as far as
// its arrow goes along.
void CommandTooltip::keepInWindow(ArrowedWindow& window) {
  const QWidget* const layer = window.parentWidget();
  SArrowParam arrow;
  if (!layer || layer->rect().contains(window.geometry()) || !window.GetCurrentArrowParam(arrow))
    return;
  const QPoint tip = window.pos() + window.GetArrowPoint();
  arrow.offsetAlongX = true;
  arrow.offset = 0;
  QSize size;
  QPoint tipInWindow;
  if (!window.GetArrowWindowSize(arrow, size, tipInWindow))
    return;
  const int left = tip.x() - tipInWindow.x();
  arrow.offset = std::max(0, left + size.width() + Gap - layer->width()) - std::max(0, Gap - left);
  if (window.GetArrowWindowSize(arrow, size, tipInWindow))
    window.move(tip - tipInWindow);
}

} // namespace Workbench
