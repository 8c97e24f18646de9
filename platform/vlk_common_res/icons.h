// SPDX-License-Identifier: MIT
#pragma once

#include <vlk_common_res/vlk_common_res_export.h>

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>
#include <QStringList>

namespace Vela::Resource {

/// The line icons of the library, ":/resources/images/<name>.svg".
///
/// The drawings use one colour that is legible on light and dark, so the files may be used as they are. The
/// icons made here are drawn in the colours of the current palette instead, sharp at any size and pixel
/// ratio, and follow a switch of the palette with the next repaint. Disabled icons are pale, active ones
/// (under the mouse) take the colour of links. To be used on the main thread only.
///
/// \code
/// openAction->setIcon(Vela::Resource::Icons::icon(QStringLiteral("open_file")));
/// \endcode
class COMMON_RES_EXPORT Icons {
public:
  Icons() = delete;

  /// The icon called \a name in the colours of the palette; a null icon when there is none of that name. The
  /// marks "info", "warning" and "error" keep their own colour.
  static QIcon icon(const QString& name);
  /// The icon called \a name, always in \a color, for backgrounds that do not belong to the palette.
  static QIcon icon(const QString& name, const QColor& color);
  /// The names of all icons, sorted.
  static QStringList names();

  /// \a path with "@2x" before its extension when \a devicePixelRatio is above 1 and that file exists, else
  /// \a path; for what does not look for the larger file on its own, such as QMovie.
  static QString pathForRatio(const QString& path, qreal devicePixelRatio);
  /// The picture at \a path for a screen of \a devicePixelRatio, which QPixmap does not choose on its own.
  /// Its size on screen is QPixmap::deviceIndependentSize(). A null pixmap when there is no such picture.
  static QPixmap picture(const QString& path, qreal devicePixelRatio);
};

} // namespace Vela::Resource
