// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tools/tool_operation.h>

#include <QObject>
#include <QPointer>
#include <QStringList>

namespace Vela::UiBase {
class BaseViewController;
}

namespace Workbench {

class MeshViewController;
class PhotoViewController;

/// The pages of the workbench.
enum EPage : int {
  MeshPage = 0,
  PhotoPage = 1,
};

/// The mesh and the photographs: one of them is the page that is seen. The controller of the mesh presents
/// that of the photographs, which is dismissed for the mesh. Files that are opened lead to the page that can
/// show them.
///
/// Lives as long as both controllers. Main thread only.
class WorkbenchPages : public QObject {
  Q_OBJECT

public:
  WorkbenchPages(MeshViewController& mesh, PhotoViewController& photos, QObject* parent = nullptr);

  EPage current() const noexcept { return m_current; }
  void show(EPage page);
  /// Goes to the first of these photographs; those that are not open are opened. Told to the OperationLog.
  void openPhotos(const QStringList& files);
  /// Does again what was done with the photographs and told to the OperationLog. @return whether it could.
  bool perform(const Vela::UiBase::ToolOperation& operation);

Q_SIGNALS:
  void currentChanged();

private:
  void updateCurrent();
  void openDropped(const QStringList& files);

  MeshViewController& m_mesh;
  PhotoViewController& m_photos;
  EPage m_current = MeshPage;
};

} // namespace Workbench
