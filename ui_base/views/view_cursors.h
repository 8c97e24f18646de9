// SPDX-License-Identifier: MIT
#pragma once

#include <QCursor>
#include <QPointer>
#include <QStack>

namespace Vela::UiBase {

class BaseView;

/// The cursors of a view that tools have replaced, to be put back in reverse order. They belong to one view:
/// when another one comes, the one before gets its own cursor back.
class ViewCursors {
public:
  /// Keeps the view's cursor and shows another one. Ignores null.
  void replace(BaseView* view, const QCursor& cursor);
  /// Puts the cursor kept last back; the arrow when there is none. Ignores null.
  void restore(BaseView* view);
  /// Gives the view the cursor it had at first.
  void restoreAll();
  /// Whether the view is the one whose cursors are kept.
  bool belongTo(const BaseView* view) const { return m_view == view; }

private:
  void moveTo(BaseView* view);

  QPointer<BaseView> m_view;
  QStack<QCursor> m_saved;
};

} // namespace Vela::UiBase
