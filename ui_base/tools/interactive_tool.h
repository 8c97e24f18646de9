// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/tool_state_protocol.h>
#include <ui_base/tools/mouse_press.h>
#include <ui_base/tools/tool_operation.h>
#include <ui_base/views/view_responder.h>

#include <QCursor>

#include <memory>

namespace Vela::UiBase {

class BaseView;
class InteractiveToolPrivate;

/// The base of every tool that works on a view with the mouse: a press starts an operation, moves with the
/// button held go on with it, the release of the same button ends it.
///
/// A tool is held by std::shared_ptr; the ToolStack it is pushed on is one owner, and its delegate. Only the
/// top tool of a stack is active. The view is not owned; what is left of a view that is being destroyed is
/// no longer of its own class, so ask for it with qobject_cast. Main thread only.
///
/// A subclass overrides startOperation() and endOperation() and the handlers it needs, and calls those of
/// the base. endOperation() also runs when the mouse is lost in the middle of an operation; an operation
/// that was not finished is best left as it stands, or taken back there.
///
/// @code
/// class PanTool : public InteractiveTool {
/// public:
///   explicit PanTool(MeshView* view) : InteractiveTool(view) {
///     setIdleCursor(Qt::OpenHandCursor);
///     setOperatingCursor(Qt::ClosedHandCursor);
///   }
///   bool mouseMove(QMouseEvent* event) override {
///     if (!InteractiveTool::mouseMove(event))
///       return false;
///     pan(event->position() - pressEvent().position());
///     return true;
///   }
/// };
/// controller->pushTool(MiddleButton, std::make_shared<PanTool>(view));
/// @endcode
class UI_BASE_EXPORT InteractiveTool : public ViewResponder,
                                       public Taren::Core::Delegator<ToolStateProtocol>,
                                       public std::enable_shared_from_this<InteractiveTool> {
public:
  /// A tool of @p view, which may die first.
  explicit InteractiveTool(BaseView* view);
  ~InteractiveTool() override;
  InteractiveTool(const InteractiveTool&) = delete;
  InteractiveTool& operator=(const InteractiveTool&) = delete;

  /// Answers whether the press button is still held, during an operation; false otherwise.
  bool mouseMove(QMouseEvent* event) override;
  /// Starts an operation when the tool is active.
  bool mousePress(QMouseEvent* event) override;
  /// Ends the operation when it is the release of the button that started it.
  bool mouseRelease(QMouseEvent* event) override;

  /// Does again what the tool told to the OperationLog; asked of the tool that is active for the button of
  /// the operation.
  /// @return whether it could; false by default.
  virtual bool perform(const ToolOperation& operation);

  /// @name State changes
  /// Each acts in one state only, and does nothing in any other. So a tool that is deactivated while it
  /// operates or is suspended stays as it is.
  /// @{
  virtual void activate();   ///< Inactive to active.
  virtual void suspend();    ///< Active to suspended.
  virtual void resume();     ///< Suspended to active.
  virtual void deactivate(); ///< Active to inactive.
  /// @}

  /// Whether it serves its button.
  bool isActive() const noexcept { return m_state == State::Active; }
  /// Whether another tool lies over it.
  bool isSuspended() const noexcept { return m_state == State::Suspended; }
  /// Whether a press has begun something that has not ended.
  bool isOperating() const noexcept { return m_state == State::Operating; }

  /// The cursor while no operation runs: the operating cursor unless one was set.
  const QCursor& getIdleCursor() const;
  /// The arrow unless one was set.
  const QCursor& getOperatingCursor() const;
  /// The view the tool works on, or null when it has died.
  BaseView* getView() const;
  /// The press that started the operation; null when none runs.
  const MousePress& pressEvent() const noexcept;

protected:
  /// Ends the operation: active again. Forgets the press in any state.
  virtual void endOperation();
  /// Active to operating. pressEvent() is set already.
  virtual void startOperation();

  /// Shown at once by the controller of the view when the tool is active on top of the left button, otherwise
  /// when it becomes so. Reports nothing.
  void setIdleCursor(const QCursor& cursor);
  /// Shown at once during an operation.
  void setOperatingCursor(const QCursor& cursor);
  /// A cursor from an image file or resource, its hot spot in pixels of the image; the default cursor when
  /// there is no such image.
  QCursor loadCursorFromPath(const QString& path, const QPoint& hotSpot);

private:
  enum class State : signed char { Inactive, Active, Suspended, Operating };

  friend class CmdsViewController; // ends operations that lose the mouse, and pushes

  bool change(State from, State to);
  void report(void (ToolStateProtocol::*callback)(InteractiveTool*));
  void tellIdleCursor();

  const std::unique_ptr<InteractiveToolPrivate> d;
  State m_state = State::Inactive;
  bool m_moves = false; // it is being pushed, or its controller dies
};

} // namespace Vela::UiBase
