// SPDX-License-Identifier: MIT
#pragma once

namespace Vela::Resource {

/// The palettes an application can be drawn in.
enum EPalette : int {
  Light = 0,
  Dark = 1,
};

} // namespace Vela::Resource
