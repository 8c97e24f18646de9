// SPDX-License-Identifier: MIT
#include "command_tooltip.h"

#include <ui_base/core/language.h>
#include <ui_base/toolbars/tool_button.h>
#include <ui_base/tooltips/tooltip_ex.h>
#include <ui_base/tooltips/tooltip_ex_factory.h>
#include <ui_base/tooltips/tooltip_object.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/commands/command_help.h>

#include <QAction>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPointer>

#include <utility>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr int PictureSize = 56;   // px
constexpr int DetailsWidth = 220; // px
constexpr char GivenProperty[] = "hasCommandTooltip";

// Painted each time, so that it follows the palette and the screen.
class Picture : public QWidget {
public:
  Picture(QIcon icon, QWidget* parent) : QWidget(parent), m_icon(std::move(icon)) {
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
  auto* const details = new QLabel(help.details.translated(), section);
  details->setTextFormat(Qt::PlainText);
  details->setWordWrap(true);
  details->setFixedWidth(DetailsWidth);
  row->addWidget(details);
  return section;
}

} // namespace

void giveCommandTooltip(ToolButton& button) {
  TooltipObject* const tooltip = button.GetTooltipObject();
  const QAction* const command = button.actions().value(0);
  if (!tooltip || !command || button.property(GivenProperty).toBool())
    return;
  button.setProperty(GivenProperty, true);
  const auto make = [command = QPointer<const QAction>(command)]() -> QWidget* {
    TooltipEx* const content = TooltipExFactory::Create(command);
    if (!content)
      return nullptr;
    const CommandHelp help = commandHelp(*command);
    if (!help.details.isEmpty())
      content->SetAdvancedWidget(makeSection(help));
    return content;
  };
  keepTranslated(&button, [&button, make, command = QPointer<const QAction>(command)] {
    if (TooltipObject* const shown = command ? button.GetTooltipObject() : nullptr)
      shown->SetTooltipFactory(make, TooltipExFactory::Description(command), true);
  });
}

} // namespace Workbench
