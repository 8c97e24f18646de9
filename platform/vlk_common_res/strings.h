// SPDX-License-Identifier: MIT
#pragma once

#include <vlk_common_res/vlk_common_res_export.h>

#include <QCoreApplication>
#include <QString>

namespace Vela::Resource {

/// Identifiers and texts that several modules share.
///
/// Identifiers are stable: they are never translated and may be written to settings. Texts are translated
/// each time they are asked for, so that they follow a translator installed later. An application that
/// replaces this library gives its own texts here. Safe on any thread.
///
/// \code
/// auto* tools = new CommandGroup({}, String::TOOLS_GROUP_TEXT(), String::COMMAND_TOOLPANEL_GROUP_ID());
/// \endcode
class COMMON_RES_EXPORT String {
  Q_DECLARE_TR_FUNCTIONS(Vela::Resource::String)

public:
  String() = delete;

  /// The base group name of a command for which no other has been set.
  static QString COMMAND_DEFAULT_GROUP();
  /// The group of commands shown as interactive tools.
  static QString COMMAND_TOOLPANEL_GROUP_ID();
  /// The group whose groups come and go with what the application works on.
  static QString COMMAND_DYNAMIC_TOOLPANEL_GROUP_ID();
  /// The group of commands shown in the action panel.
  static QString COMMAND_ACTIONPANEL_GROUP_ID();

  /// The tag that a command working through a flyout panel reports among its tags.
  static QString TAG_FLYOUT();
  /// The name of the dynamic property, a bool, that marks a widget as a flyout panel. Plain characters, as
  /// QObject::property() and QObject::setProperty() take them; valid for the life of the program.
  static const char* WIDGET_PROPERTY_ISFLYOUT();

  /// The texts of the three groups.
  static QString ACTIONS_GROUP_TEXT();
  /// Title of the group of an action panel that holds the tools.
  static QString TOOLS_GROUP_TEXT();
  /// Title of the group that comes and goes with what is selected.
  static QString DYNAMIC_TOOLS_GROUP_TEXT();
  /// Shown in place of a value that is not known, such as a volume that is still being computed.
  static QString NOT_APPLICABLE_LABEL_TEXT();
};

} // namespace Vela::Resource
