// SPDX-License-Identifier: MIT
#pragma once

class QSize;

namespace Workbench {

class MainWindow;

/// Where the window stands, which page it shows and what distances are shown in: kept from one start to the
/// next, by identifiers, and put back as at the first start in one step.
class WindowLayout {
public:
  static void save(MainWindow& window);
  /// @name Nothing changes where nothing was kept
  /// @{
  static void restorePlace(MainWindow& window);
  /// Once it is shown, and so has its commands.
  static void restoreContent(MainWindow& window);
  /// @}
  static void reset(MainWindow& window, const QSize& size);
};

} // namespace Workbench
