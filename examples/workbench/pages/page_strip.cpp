// SPDX-License-Identifier: MIT
#include "page_strip.h"

#include <ui_base/core/language.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <vlk_common_res/styles.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/pages/show_page_command.h>
#include <workbench/pages/workbench_pages.h>
#include <workbench/photos/photo_view.h>

#include <QFileInfo>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

namespace Workbench {

using Vela::UiBase::CommandBase;
using Vela::UiBase::QtUiToolkit;

namespace {

constexpr QSize ThumbnailSize(96, 60);                                 // px
constexpr int Padding = 6;                                             // px
constexpr QSize IconSize(ThumbnailSize + QSize(2 * Padding, Padding)); // with what is clear around it
constexpr int LeastWindow = 480; // px; in a lower one the pages need all the room
constexpr int RingWidth = 2;     // px

// In the middle of an icon, so that all names stand at one height. Not tinted when it is selected.
QIcon iconOf(const QPixmap& thumbnail) {
  const qreal ratio = thumbnail.devicePixelRatio();
  QPixmap pixmap(IconSize * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  QRectF place(QPointF(), thumbnail.deviceIndependentSize());
  place.moveCenter(QRectF(QPointF(Padding, Padding), ThumbnailSize).center());
  QPainter(&pixmap).drawPixmap(place.topLeft(), thumbnail);
  QIcon icon(pixmap);
  icon.addPixmap(pixmap, QIcon::Selected);
  return icon;
}

} // namespace

PageStrip::PageStrip(WorkbenchPages& pages, MeshViewController& mesh, PhotoView& photos, QWidget* area)
    : QListWidget(area),
      m_pages(pages),
      m_mesh(mesh),
      m_photos(photos),
      m_area(*area),
      m_thumbnails(ThumbnailSize) {
  setObjectName(QStringLiteral("page_strip"));
  setFlow(LeftToRight);
  setFrameShape(NoFrame);
  setIconSize(IconSize);
  setTextElideMode(Qt::ElideMiddle);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setHorizontalScrollMode(ScrollPerPixel);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  setFocusPolicy(Qt::TabFocus);
  setMouseTracking(true);
  viewport()->setBackgroundRole(QPalette::Window);
  Vela::UiBase::ToolBar::AddToFocusCycle(this);
  connectItems();
  area->installEventFilter(this);
  Vela::UiBase::keepTranslated(this, [this] {
    setAccessibleName(tr("Open pages"));
    showItems();
  });
}

void PageStrip::connectItems() {
  connect(&m_pages, &WorkbenchPages::currentChanged, this, &PageStrip::refresh);
  connect(&m_photos.document(), &PhotoDocument::changed, this, &PageStrip::refresh);
  connect(&m_mesh.events(), &MeshViewEvents::meshShown, this, &PageStrip::showItems);
  connect(&m_mesh.events(), &MeshViewEvents::savingFinished, this, &PageStrip::showItems);
  connect(&m_thumbnails, &PhotoThumbnails::made, this,
          [this](const QString& file) { showIcon(m_files.indexOf(file)); });
  connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { open(row(item)); });
  // The names, which may be cut off, as tooltips.
  connect(this, &QListWidget::itemEntered, this,
          [this](const QListWidgetItem* item) { viewport()->setToolTip(item->text()); });
  connect(this, &QListWidget::viewportEntered, this, [this] { viewport()->setToolTip({}); });
  connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, &PageStrip::updateGeometry);
}

QSize PageStrip::itemSize() const { return IconSize + QSize(0, fontMetrics().height() + 2 * Padding); }

QSize PageStrip::sizeHint() const { return {ThumbnailSize.width(), minimumSizeHint().height()}; }

QSize PageStrip::minimumSizeHint() const {
  const bool scrolls = horizontalScrollBar()->maximum() > 0;
  return {0, itemSize().height() + (scrolls ? horizontalScrollBar()->sizeHint().height() : 0)};
}

void PageStrip::refresh() {
  const PhotoDocument& document = m_photos.document();
  if (m_files != document.files())
    showItems();
  showCurrent();
  showIfRoom();
  // The photograph that is to be looked at comes first.
  if (isVisible() && (!document.isLoading() || m_pages.current() == MeshPage))
    m_thumbnails.want(m_files);
}

void PageStrip::showItems() {
  m_files = m_photos.document().files();
  while (count() > m_files.size() + 1)
    delete takeItem(count() - 1);
  while (count() < m_files.size() + 1)
    (new QListWidgetItem(this))->setSizeHint(itemSize());
  const QString mesh = QFileInfo(m_mesh.fileName()).fileName();
  item(0)->setText(mesh.isEmpty() ? tr("Mesh") : mesh);
  item(0)->setData(Qt::AccessibleTextRole, mesh.isEmpty() ? tr("Mesh") : tr("Mesh %1").arg(mesh));
  item(0)->setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("smooth_shading")));
  for (qsizetype i = 0; i < m_files.size(); ++i) {
    const QString name = QFileInfo(m_files[i]).fileName();
    item(int(i) + 1)->setText(name);
    item(int(i) + 1)->setData(Qt::AccessibleTextRole, tr("Photograph %1").arg(name));
    showIcon(i);
  }
  showCurrent();
}

void PageStrip::showIcon(qsizetype photo) {
  if (photo < 0)
    return;
  const QPixmap thumbnail = m_thumbnails.of(m_files[photo]);
  item(int(photo) + 1)
      ->setIcon(thumbnail.isNull() ? QtUiToolkit::Instance().CreateIcon(QStringLiteral("open_file"))
                                   : iconOf(thumbnail));
}

void PageStrip::showCurrent() {
  const bool isMesh = m_pages.current() == MeshPage;
  setCurrentRow(isMesh ? 0 : int(m_photos.document().position()) + 1);
}

// By the window: a page may have a status bar, and the strip stays where it is from page to page.
void PageStrip::showIfRoom() { setVisible(!m_files.isEmpty() && window()->height() >= LeastWindow); }

// By the ways that can be recorded and done again.
void PageStrip::open(int row) {
  if (row > 0 && row <= m_files.size())
    m_pages.openPhotos({m_files[row - 1]});
  else if (CommandBase* const command = m_mesh.findCommand(ShowPageCommand::idOf(MeshPage));
           command && m_pages.current() != MeshPage)
    command->trigger();
  else
    goBack();
}

void PageStrip::goBack() {
  QWidget* const page = m_pages.current() == MeshPage ? static_cast<QWidget*>(m_mesh.meshView()) : &m_photos;
  if (page)
    page->setFocus();
}

bool PageStrip::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &m_area && event->type() == QEvent::Resize)
    refresh();
  return QListWidget::eventFilter(watched, event);
}

void PageStrip::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
  case Qt::Key_Space:
    open(currentRow());
    break;
  case Qt::Key_Escape:
    goBack();
    break;
  default:
    QListWidget::keyPressEvent(event);
    break;
  }
}

// What was only walked over is not selected any more.
void PageStrip::focusOutEvent(QFocusEvent* event) {
  QListWidget::focusOutEvent(event);
  showCurrent();
}

void PageStrip::mouseReleaseEvent(QMouseEvent* event) {
  QListWidget::mouseReleaseEvent(event);
  showCurrent();
}

void PageStrip::initViewItemOption(QStyleOptionViewItem* option) const {
  QListWidget::initViewItemOption(option);
  option->decorationPosition = QStyleOptionViewItem::Top;
  option->displayAlignment = Qt::AlignCenter;
  option->showDecorationSelected = true;
  option->state.setFlag(QStyle::State_Active); // the page is seen, whoever has the keyboard
}

void PageStrip::paintEvent(QPaintEvent* event) {
  QListWidget::paintEvent(event);
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawLine(0, 0, viewport()->width(), 0);
  if (!hasFocus() || !currentItem())
    return;
  const double inset = RingWidth / 2.0;
  painter.setPen(QPen(palette().color(QPalette::WindowText), RingWidth));
  painter.drawRect(QRectF(visualItemRect(currentItem())).adjusted(inset, inset, -inset, -inset));
}

} // namespace Workbench
