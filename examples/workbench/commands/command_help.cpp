// SPDX-License-Identifier: MIT
#include "command_help.h"

#include <QAction>
#include <QVariant>

#include <optional>

namespace Workbench {

namespace {

using Details = std::optional<Vela::UiBase::Text>; // has a value to begin with, as properties need it

constexpr char DetailsProperty[] = "helpDetails";
constexpr char PictureProperty[] = "helpPicture";

} // namespace

void setCommandHelp(QAction& command, const CommandHelp& help) {
  command.setProperty(DetailsProperty, QVariant::fromValue(Details(help.details)));
  command.setProperty(PictureProperty, help.picture);
}

CommandHelp commandHelp(const QAction& command) {
  const auto details = command.property(DetailsProperty).value<Details>();
  return {details.value_or(QString()), command.property(PictureProperty).toString()};
}

} // namespace Workbench
