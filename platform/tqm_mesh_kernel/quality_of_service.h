// SPDX-License-Identifier: MIT
#pragma once

namespace Taren::Core {

/// Where, and how urgently, a task runs.
enum EQualityOfService : int {
  MainThreadQoS = 0, ///< One first-in-first-out queue served by the Qt main thread.
  HighQoS = 1,       ///< Worker threads, before everything else.
  NormalQoS = 2,     ///< Worker threads.
  LowQoS = 3,        ///< Worker threads, when nothing else waits.
};

} // namespace Taren::Core
