// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/latest_task.h>
#include <workbench/photos/photo_image.h>

#include <QStringList>

namespace Workbench {

/// A row of photographs, and the one of them that is shown.
///
/// They are read one at a time on a thread of the dispatcher; until the next one is there the one before
/// stays. Only the last wish counts: going on to another one ends the reading of the one before. A file that
/// is no picture is taken out of the row, and the next one in the same direction takes its turn. For the main
/// thread.
///
/// @code
/// connect(&document, &PhotoDocument::photoChanged, view, [&] { show(document.photo()); });
/// document.open(files);
/// @endcode
class PhotoDocument : public QObject {
  Q_OBJECT

public:
  explicit PhotoDocument(QObject* parent = nullptr);
  ~PhotoDocument() override;

  /// Adds files at the end of the row, but none twice, and goes to the first of them.
  void open(const QStringList& files);
  /// These three are told to the OperationLog.
  void showNext();
  void showPrevious();
  bool hasNext() const { return m_wanted + 1 < m_files.size(); }
  bool hasPrevious() const { return m_wanted > 0; }
  /// Takes the current photograph out of the row; the file stays.
  void closeCurrent();
  /// The name that the document goes by in the OperationLog.
  static QString operationName() { return QStringLiteral("Photographs"); }
  /// Does again what was told. @return whether there is such an action, and something to do for it.
  bool perform(const QString& action);

  /// In the order of the row.
  const QStringList& files() const noexcept { return m_files; }
  /// How many there are.
  qsizetype count() const { return m_files.size(); }
  /// The place in the row of the one that is shown, or is to be shown next; -1 when there is none.
  qsizetype position() const noexcept { return m_wanted; }
  /// Its file.
  QString fileName() const { return m_files.value(m_wanted); }

  /// What is shown: the current photograph or, while that is being read, the one before.
  const PhotoImage& photo() const noexcept { return m_photo; }
  /// The current photograph is being read, or shall be once the document is resumed.
  bool isLoading() const noexcept { return m_wanted != m_shown; }
  /// How far the reading is, from 0 to 1.
  double progress() const noexcept { return m_progress; }

  /// Nobody looks: ends the reading, until the document is resumed.
  void pause();
  void resume();

Q_SIGNALS:
  /// photo() is another.
  void photoChanged();
  /// The row, the position in it, or how far the reading is.
  void changed();
  /// A file was not opened. @p message names the file and the reason.
  void failed(const QString& fileName, const QString& reason, const QString& message);
  /// What was asked for is shown, or cannot be.
  void settled();

private:
  enum class Direction { Forwards, Backwards };
  struct Failure {
    QString reason;
    QString message;
  };

  void goTo(qsizetype position, Direction direction);
  void load();
  LatestTask::Work loading();
  void show(const PhotoImage& photo);
  void dropCurrent(const Failure& failure);
  void settle();

  QStringList m_files;
  qsizetype m_wanted = -1;
  qsizetype m_shown = -1; // not that of photo() when its file was taken out of the row
  Direction m_direction = Direction::Forwards;
  PhotoImage m_photo;
  double m_progress = 0;
  bool m_paused = false;
  LatestTask m_task;
};

} // namespace Workbench
