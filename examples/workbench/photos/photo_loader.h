// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/run_progress.h>
#include <workbench/photos/photo_image.h>

#include <QString>

#include <stdexcept>

namespace Workbench {

/// Why a photograph was not loaded, in words for the user.
class PhotoLoadError : public std::runtime_error {
public:
  PhotoLoadError(const QString& fileName, const QString& reason);

  const QString& reason() const noexcept { return m_reason; }
  /// One sentence that names the file and the reason.
  QString message() const;

private:
  QString m_fileName;
  QString m_reason;
};

/// Reads a photograph in any format Qt has a plug-in for, whatever the file is called, and turns it upright
/// as its camera noted. Blocks; for any thread. Stops soon after it is asked to, in the middle of the file.
///
/// @code
/// const PhotoImage photo = loadPhoto(fileName, RunProgress(stop.get_token(), showFraction));
/// @endcode
/// @throws PhotoLoadError, RunCancelled
PhotoImage loadPhoto(const QString& fileName, const Vela::UiBase::RunProgress& progress = {});

/// Whether the file's name ends like that of a picture.
bool isPhotoFileName(const QString& fileName);
/// The patterns of such names for a file dialog, "*.jpg *.png".
QString photoNamePatterns();

} // namespace Workbench
