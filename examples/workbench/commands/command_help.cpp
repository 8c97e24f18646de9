// SPDX-License-Identifier: MIT
#include "command_help.h"

#include <QAction>

namespace Workbench {

namespace {

constexpr char DetailsProperty[] = "helpDetails";
constexpr char PictureProperty[] = "helpPicture";

} // namespace

void setCommandHelp(QAction& command, const CommandHelp& help) {
  command.setProperty(DetailsProperty, help.details);
  command.setProperty(PictureProperty, help.picture);
}

CommandHelp commandHelp(const QAction& command) {
  return {command.property(DetailsProperty).toString(), command.property(PictureProperty).toString()};
}

} // namespace Workbench
