// SPDX-License-Identifier: MIT
#include "arrow_param.h"

#include <QDebug>

namespace Vela::UiBase {

QDebug operator<<(QDebug debug, const SArrowParam& arrow) {
  const QDebugStateSaver saver(debug);
  debug.nospace() << "SArrowParam(position " << static_cast<int>(arrow.position) << ", length "
                  << arrow.length << ", angle " << arrow.angle << (arrow.fixedAngle ? " fixed" : "")
                  << ", tip angle " << arrow.tipAngle << ", offset " << arrow.offset
                  << (arrow.offsetAlongX ? " along x" : " along y") << ", anchor " << arrow.anchor << ')';
  return debug;
}

} // namespace Vela::UiBase
