// SPDX-License-Identifier: MIT
#include "length_unit_command.h"

#include <ui_base/core/language.h>
#include <workbench/mesh_view.h>

namespace Workbench {

using namespace Vela::UiBase;
using namespace Vela::Common;

LengthUnitCommand::LengthUnitCommand(MeshViewController* controller, ELengthUnit unit, const Text& text)
    : WorkbenchCommand(controller), m_unit(unit) {
  setText(text);
  keepTranslated(this, [this, unit] {
    setStatusTip(tr("Show distances in %1; one unit of the mesh is a millimetre").arg(unitName(unit)));
  });
  setCheckable(true);
  setChecked(unit == Millimetre);
}

QString LengthUnitCommand::idOf(ELengthUnit unit) {
  return QString::fromLatin1(staticMetaObject.className()) + QString::number(unit);
}

CommandState LengthUnitCommand::defaultCommandState() { return {State::On, State(m_unit == Millimetre)}; }

bool LengthUnitCommand::onExecuteAsync(bool checked) {
  MeshView* const view = meshView();
  if (view && checked)
    view->measurements().setUnit(m_unit);
  return view != nullptr;
}

} // namespace Workbench
