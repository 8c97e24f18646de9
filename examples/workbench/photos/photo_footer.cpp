// SPDX-License-Identifier: MIT
#include "photo_footer.h"

#include <ui_toolkit/image_viewer_tool_bar.h>
#include <vlk_common_res/styles.h>

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QStyle>

namespace Workbench {

using Vela::Resource::Styles;

namespace {

// Labels go by the direction of their text otherwise, which is that of the file's name.
QLabel* makeLabel(const char* objectName, Qt::Alignment alignment, QWidget* parent) {
  auto* const label = new QLabel(parent);
  label->setObjectName(QLatin1String(objectName));
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(QStyle::visualAlignment(parent->layoutDirection(), alignment) | Qt::AlignAbsolute |
                      Qt::AlignVCenter);
  label->setForegroundRole(QPalette::PlaceholderText);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  return label;
}

} // namespace

PhotoFooter::PhotoFooter(QWidget* parent)
    : QWidget(parent),
      m_name(makeLabel("photo_name_label", Qt::AlignLeft, this)),
      m_figures(makeLabel("photo_figures_label", Qt::AlignRight, this)),
      m_toolBar(new Vela::UiToolkit::ImageViewerToolBar(this)) {
  auto* const row = new QGridLayout(this);
  row->setContentsMargins(12, 6, 12, 6);
  row->setHorizontalSpacing(12);
  row->addWidget(m_name, 0, 0);
  row->addWidget(m_toolBar, 0, 1);
  row->addWidget(m_figures, 0, 2);
  row->setColumnStretch(0, 1);
  row->setColumnStretch(2, 1);
  connect(&Styles::Instance(), &Styles::changed, this, &PhotoFooter::styleToolBar);
  styleToolBar();
}

// As the bars over the mesh look.
void PhotoFooter::styleToolBar() {
  const Styles& styles = Styles::Instance();
  const QString bar =
      QStringLiteral("QWidget#ImageViewerToolBar { background-color: %1; border: 1px solid %2; "
                     "border-radius: 6px; }\n");
  m_toolBar->setStyleSheet(
      bar.arg(styles.ColorToolPaletteMainBack().name(), styles.ColorActionPanelBorder().name()) +
      styles.ToolButtonOnToolPalette());
}

void PhotoFooter::setTexts(const QString& name, const QString& figures) {
  m_nameText = name;
  m_name->setAccessibleName(name);
  m_figures->setText(figures);
  fitName();
}

QString PhotoFooter::figures() const { return m_figures->text(); }

void PhotoFooter::fitName() {
  m_name->setText(m_name->fontMetrics().elidedText(m_nameText, Qt::ElideMiddle, m_name->width()));
}

void PhotoFooter::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layout()->activate();
  fitName();
}

void PhotoFooter::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().window());
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawLine(rect().topLeft(), rect().topRight());
}

} // namespace Workbench
