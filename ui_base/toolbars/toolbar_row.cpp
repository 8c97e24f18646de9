// SPDX-License-Identifier: MIT
#include "toolbar_row.h"

#include "toolbar_manager.h"

#include <QIcon>

#include <algorithm>

namespace Vela::UiBase {

namespace {

constexpr int separatorSize = 2; // px, without a picture

/// In the pixels of the screen that the label is on.
QPixmap separatorPicture(const QLabel& label, bool horizontal) {
  const QIcon icon(horizontal ? QStringLiteral(":/resources/images/sys_hseparator.png")
                              : QStringLiteral(":/resources/images/sys_vseparator.png"));
  const QList<QSize> sizes = icon.availableSizes();
  return sizes.isEmpty() ? QPixmap() : icon.pixmap(sizes.constFirst(), label.devicePixelRatioF());
}

} // namespace

ToolbarRow::ToolbarRow(ToolBar* mainToolbar) : m_main(mainToolbar) {
  if (mainToolbar)
    makeSeparator();
}

ToolbarRow::~ToolbarRow() { delete m_separator; }

void ToolbarRow::makeSeparator() {
  m_separator = new QLabel(m_main->parentWidget());
  m_separator->setFocusPolicy(Qt::NoFocus);
  const QPixmap picture = separatorPicture(*m_separator, isHorizontal());
  const QSize size =
      picture.isNull() ? QSize(separatorSize, separatorSize) : picture.deviceIndependentSize().toSize();
  if (!picture.isNull())
    m_separator->setPixmap(picture);
  if (isHorizontal())
    m_separator->setFixedWidth(size.width());
  else
    m_separator->setFixedHeight(size.height());
  m_separator->setAlignment(Qt::AlignCenter);
  m_separator->move(0, 0);
  m_separator->hide();
}

void ToolbarRow::showSeparator(bool show) {
  if (m_separator)
    m_separator->setVisible(show);
}

void ToolbarRow::moveSeparator() {
  if (!m_main || !m_separator)
    return;
  if (m_separator->parentWidget() != m_main->parentWidget())
    m_separator->setParent(m_main->parentWidget());
  const QRect main = m_main->geometry();
  if (isHorizontal())
    m_separator->setFixedHeight(main.height());
  else
    m_separator->setFixedWidth(main.width());
  m_separator->move(behind(main, ToolbarManager::MAIN_SPACING, m_separator->size()));
}

QPoint ToolbarRow::behind(const QRect& previous, int gap, const QSize& size) const {
  if (!isHorizontal())
    return {previous.left(), previous.bottom() + gap};
  return {isMirrored() ? previous.left() - gap - size.width() + 1 : previous.right() + gap, previous.top()};
}

void ToolbarRow::place(const QList<ToolBar*>& toolbars) {
  if (!m_main || !m_separator)
    return;
  const QMargins margins = m_main->MainContentMargins();
  const int step = m_main->ButtonGroupSpacing() + (isHorizontal() ? margins.right() : margins.bottom());
  const QList<QPointer<ToolBar>> guarded(toolbars.cbegin(), toolbars.cend());
  QRect previous = m_separator->geometry();
  int gap = ToolbarManager::MAIN_SPACING;
  for (const QPointer<ToolBar>& toolbar : guarded) {
    if (!toolbar || toolbar->isHidden())
      continue;
    toolbar->move(behind(previous, gap, toolbar->size()));
    if (toolbar)
      fit(*toolbar);
    if (toolbar && isMirrored())
      toolbar->move(behind(previous, gap, toolbar->size()));
    if (!toolbar)
      continue;
    previous = toolbar->geometry();
    gap = step;
  }
}

// Where the parent ends, or a toolbar of its own stands in the way.
int ToolbarRow::lengthFor(const ToolBar& toolbar) const {
  const QWidget& parent = *toolbar.parentWidget();
  const QRect place = toolbar.geometry();
  int length = isMirrored() ? place.right() + 1 : parent.width() - place.left();
  for (const QObject* const child : parent.children()) {
    const auto* const other = qobject_cast<const ToolBar*>(child);
    if (!other)
      continue;
    const QRect rect = other->geometry();
    const bool ofRow =
        other == m_main || other->property(qPrintable(ToolbarManager::COMMANDGROUP_PROPERTY)).isValid();
    if (ofRow || other->isHidden() || other->OwnerButton() || rect.bottom() < place.top() ||
        rect.top() > place.bottom())
      continue;
    const int between = isMirrored() ? place.right() - rect.right() : rect.left() - place.left();
    if (between > 0)
      length = std::min(length, between - ToolbarManager::MAIN_SPACING);
  }
  return length;
}

// Beyond that the toolbar lists its buttons.
void ToolbarRow::fit(ToolBar& toolbar) const {
  QSize size = toolbar.sizeHint();
  if (const QWidget* const parent = toolbar.parentWidget(); parent && m_main) {
    const int height = parent->height() - toolbar.y();
    const int width = isHorizontal() ? lengthFor(toolbar) : parent->width() - toolbar.x();
    size = size.boundedTo({width, height}).expandedTo(toolbar.minimumSizeHint());
  }
  if (toolbar.size() != size)
    toolbar.resize(size);
}

} // namespace Vela::UiBase
