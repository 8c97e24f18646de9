// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>

namespace Workbench {

/// What a MeshViewController has to tell the window around its view. A helper object, because the controller
/// cannot have signals of its own. All on the main thread.
class MeshViewEvents : public QObject {
  Q_OBJECT

public:
  using QObject::QObject;

Q_SIGNALS:
  /// Files are being read. @p message says which, for the user.
  void openStarted(const QString& message);
  /// The view shows the mesh of that file now.
  void meshShown(const QString& fileName);
  /// A file was not opened; the mesh before is still shown. @p message names the file and the reason.
  void openFailed(const QString& fileName, const QString& reason, const QString& message);
  /// All files that were asked for were dealt with.
  void openFinished(bool allOpened);
  /// A command that was to write the mesh is done with it. @p saved is false when there is no such file:
  /// the user gave up, or it could not be written.
  void savingFinished(bool saved);
  /// Files that are photographs were among those to be opened.
  void photosAsked(const QStringList& files);
  /// The user wants to see a page, an EPage.
  void pageAsked(int page);
  /// The user wants the window as it was at the first start.
  void layoutResetAsked();
};

} // namespace Workbench
