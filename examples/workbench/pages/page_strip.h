// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/photos/photo_thumbnails.h>

#include <QListWidget>

namespace Workbench {

class MeshViewController;
class PhotoView;
class WorkbenchPages;

/// A strip that shows what is open, the mesh and each photograph with a small picture, and leads there with a
/// click or with the keyboard. The page that is seen is the one that is selected.
///
/// It is there as long as there are photographs, and room: in a low window it leaves that to the pages. F6
/// leads to it, the arrow keys along it, Enter to the page, and Escape back to where one was.
///
/// @code
/// layout->addWidget(new PageStrip(*pages, *meshController, *photoView, pageArea));
/// @endcode
class PageStrip : public QListWidget {
  Q_OBJECT

public:
  /// @param area  what it is in
  PageStrip(WorkbenchPages& pages, MeshViewController& mesh, PhotoView& photos, QWidget* area);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

protected:
  void focusOutEvent(QFocusEvent* event) override;
  void initViewItemOption(QStyleOptionViewItem* option) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  QSize itemSize() const;
  void connectItems();
  void refresh();
  void showItems();
  void showIcon(qsizetype photo);
  void showCurrent();
  void showIfRoom();
  void open(int row);
  void goBack();

  WorkbenchPages& m_pages;
  MeshViewController& m_mesh;
  PhotoView& m_photos;
  QWidget& m_area;
  QStringList m_files; // those in the strip
  PhotoThumbnails m_thumbnails;
};

} // namespace Workbench
