// SPDX-License-Identifier: MIT
#pragma once

#include <QCursor>
#include <QPointer>

#include <optional>
#include <vector>

namespace Vela::UiBase {

class BaseView;
class InteractiveTool;

/// The cursors that tools show in a view, the last one in front, over the cursor that the view has of its own
/// or, where it has none, of its parent. They move along when another view takes the place of this one, which
/// then has its own again.
class ViewCursors {
public:
  enum Kind { Idle, Operating };

  /// Null leaves the cursors without a view until there is one.
  void moveTo(BaseView* view);
  void show(const InteractiveTool& tool, Kind kind, const QCursor& cursor);
  /// Puts back what was shown before. The arrow when nothing at all was shown.
  void takeAway(const InteractiveTool& tool, Kind kind);
  /// Replaces a cursor that is shown, or would be if none lay over it. @return whether there is such a one.
  bool change(const InteractiveTool& tool, Kind kind, const QCursor& cursor);
  void clear();
  /// While the tools are out of reach the view has its own cursor, which what covers it may show too.
  void setInReach(bool inReach);

private:
  struct Shown {
    const InteractiveTool* tool; // compared, never followed
    Kind kind;
    QCursor cursor;
  };

  std::vector<Shown>::iterator find(const InteractiveTool& tool, Kind kind);
  void keepPresent();
  void apply();
  void showOwn();

  QPointer<BaseView> m_view;
  std::optional<QCursor> m_own; // of the view, while others are shown
  std::vector<Shown> m_shown;
  bool m_inReach = true;
};

} // namespace Vela::UiBase
