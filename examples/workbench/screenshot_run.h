// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>

namespace Workbench {

class MainWindow;

/// Opens files, waits until the window shows the result, saves what the user would see, and ends the program:
/// with status 0, or 1 when a file was not opened or the image cannot be written.
class ScreenshotRun : public QObject {
  Q_OBJECT

public:
  /// @param window  shown already; outlives the run
  ScreenshotRun(MainWindow& window, QString image);

  void start(const QStringList& files);
  /// What the program ends with: 1 until the image is saved, however the program is ended.
  int status() const noexcept { return m_status; }

private:
  void openingFinished(bool allOpened);
  bool isSettled() const;
  void saveWhenSettled();
  void saveAfter(int turns);
  void save();

  MainWindow& m_window;
  QString m_image;
  bool m_opening = false;
  bool m_saved = false;
  bool m_allOpened = true;
  int m_status = 1;
};

} // namespace Workbench
