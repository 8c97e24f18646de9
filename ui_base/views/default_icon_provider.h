// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/i_icon_provider.h>
#include <ui_base/ui_base_export.h>

#include <QIcon>
#include <QString>

/// Makes icons from image files and Qt resources, and else from the icon theme.
///
/// For the path of an image ("…/save.png"), or the same path without its extension, the icon gets
/// - the image itself, or "…/save_normal.png" when there is one,
/// - "…/save_active.png" when there is one, shown while the mouse is over a button,
/// - of each the file with "@2x" in its name, when there is one, for screens of twice the resolution.
///
/// SVG images ("…/save.svg", with "…/save_active.svg") are sharp at every size. A bare name is that of an
/// image in the resources ("lock" is ":/resources/images/lock_normal.png"), and else of an icon of the theme:
/// "document-save".
class UI_BASE_EXPORT DefaultIconProvider : public Vela::UiBase::IIconProvider {
public:
  /// Extension of the image files, with its dot: ".png".
  static const QString IMAGE_EXTENSION;

  DefaultIconProvider() = default;

  QIcon CreateIcon(const QString& path) const override;

  /// The file with the image for a mode: the base name, "_normal" for QIcon::Normal, "_active" for
  /// QIcon::Active and nothing for the other modes, and the extension. Empty when there is no such file.
  QString ModeFile(const QString& baseName, QIcon::Mode mode,
                   const QString& extension = IMAGE_EXTENSION) const;
};
