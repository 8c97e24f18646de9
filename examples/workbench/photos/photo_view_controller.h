// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/cmds_view_controller.h>
#include <workbench/photos/photo_action.h>

#include <QPointer>
#include <QStringList>

class QMenu;

namespace Workbench {

class PhotoPanTool;
class PhotoView;

/// What a PhotoViewController has to tell. A helper object, because the controller cannot have signals of its
/// own. All on the main thread.
class PhotoViewEvents : public QObject {
  Q_OBJECT

public:
  using QObject::QObject;

Q_SIGNALS:
  /// Files were dropped on the view.
  void filesDropped(const QStringList& files);
  /// The page became the one that is seen, or is no longer.
  void shownChanged(bool shown);
};

/// The controller of a PhotoView: moves and magnifies the photograph, goes along the row, and keeps toolbar
/// and commands enabled just when there is something for them to do. While its view is not seen, nothing is
/// read.
///
/// Owned by its view. Its commands come from the application manager when the view is shown first.
class PhotoViewController : public Vela::UiBase::CmdsViewController {
  Q_DECLARE_TR_FUNCTIONS(Workbench::PhotoViewController)

public:
  explicit PhotoViewController(PhotoView* view);
  ~PhotoViewController() override;

  /// The view, or null when it is gone.
  PhotoView* photoView() const;
  /// Lives as long as the controller.
  PhotoViewEvents& events() noexcept { return m_events; }

  bool canPerform(EPhotoAction action) const;
  /// Why its command cannot be used, a sentence for the user; empty when it can.
  QString obstacle(EPhotoAction action) const;
  /// @return whether it could be done.
  bool perform(EPhotoAction action);

  void viewDidLoad() override;
  void viewWillAppear() override;
  void viewWillDisappear() override;

  bool keyPress(QKeyEvent* event) override;
  bool keyRelease(QKeyEvent* event) override;
  bool mouseDoubleClick(QMouseEvent* event) override;
  bool mouseDragEnter(QDragEnterEvent* event) override;
  bool mouseDragLeave(QDragLeaveEvent* event) override;
  bool mouseDragMove(QDragMoveEvent* event) override;
  bool mouseDrop(QDropEvent* event) override;

protected:
  bool rightClick(QMouseEvent* release) override;

private:
  void follow(PhotoView& view);
  void followToolBar(PhotoView& view);
  void refresh();
  void refreshCommand(Vela::UiBase::CommandBase& command, const QString& obstacle);
  void refreshHand();
  bool keyReleased(Qt::Key key);
  bool pan(int key);
  void openMenu(const QPoint& position);

  PhotoViewEvents m_events;
  std::shared_ptr<PhotoPanTool> m_hand; // on the left button while there is something to shift
  Qt::Key m_pressed = Qt::Key_unknown;
  bool m_shown = false;
  QPointer<QMenu> m_menu;
};

} // namespace Workbench
