// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QIcon>
#include <QString>

namespace Vela::UiBase {

/// Turns the icon paths of commands and actions into icons. Implement it to take icons from elsewhere and
/// hand it to QtUiToolkit::IconProvider(), which then owns it. Called on the main thread.
///
/// @code
/// class AtlasIconProvider : public Vela::UiBase::IIconProvider {
/// public:
///   QIcon CreateIcon(const QString& path) const override { return m_atlas.icon(path); }
/// };
/// Vela::UiBase::QtUiToolkit::Instance().IconProvider(new AtlasIconProvider);
/// @endcode
class UI_BASE_EXPORT IIconProvider {
public:
  /// The icon that `path` names; a null icon when there is none.
  virtual QIcon CreateIcon(const QString& path) const = 0;
  virtual ~IIconProvider();

protected:
  IIconProvider() = default;
  Q_DISABLE_COPY_MOVE(IIconProvider)
};

} // namespace Vela::UiBase
