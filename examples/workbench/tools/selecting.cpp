// SPDX-License-Identifier: MIT
#include "selecting.h"

#include <workbench/mesh_view.h>

namespace Workbench {

void selectAt(MeshView& view, const QPoint& position, Qt::KeyboardModifiers modifiers) {
  const bool adds = modifiers.testFlag(Qt::ShiftModifier);
  const bool toggles = modifiers.testFlag(Qt::ControlModifier) && !adds;
  MeshDocument& document = view.document();
  TriangleSelection selection = document.selection();
  if (!adds && !toggles)
    selection.clear();
  if (const auto hit = view.pick(position))
    selection.set(hit->triangle, !toggles || !selection.contains(hit->triangle));
  document.setSelection(selection);
}

void selectWithin(MeshView& view, const QRectF& rectangle, Qt::KeyboardModifiers modifiers) {
  const TriangleSelection seen = view.trianglesIn(rectangle);
  TriangleSelection selection = view.document().selection();
  if (modifiers.testFlag(Qt::ControlModifier))
    selection -= seen;
  else if (modifiers.testFlag(Qt::ShiftModifier))
    selection |= seen;
  else
    selection = seen;
  view.document().setSelection(selection);
}

} // namespace Workbench
