// SPDX-License-Identifier: MIT
#include "strings.h"

namespace Vela::Resource {

QString String::COMMAND_DEFAULT_GROUP() { return QStringLiteral("vela.commands.default"); }

QString String::COMMAND_TOOLPANEL_GROUP_ID() { return QStringLiteral("vela.commands.tool_panel"); }

QString String::COMMAND_DYNAMIC_TOOLPANEL_GROUP_ID() {
  return QStringLiteral("vela.commands.dynamic_tool_panel");
}

QString String::COMMAND_ACTIONPANEL_GROUP_ID() { return QStringLiteral("vela.commands.action_panel"); }

QString String::TAG_FLYOUT() { return QStringLiteral("flyout"); }

const char* String::WIDGET_PROPERTY_ISFLYOUT() { return "is_flyout"; }

QString String::ACTIONS_GROUP_TEXT() { return tr("Actions"); }

QString String::TOOLS_GROUP_TEXT() { return tr("Tools"); }

QString String::DYNAMIC_TOOLS_GROUP_TEXT() { return tr("Dynamic Tools"); }

QString String::NOT_APPLICABLE_LABEL_TEXT() { return tr("N/A"); }

} // namespace Vela::Resource
