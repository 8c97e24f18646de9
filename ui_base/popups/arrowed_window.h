// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_param.h>
#include <ui_base/ui_base_export.h>

#include <QList>
#include <QWidget>

#include <memory>

class QGraphicsDropShadowEffect;

namespace Vela::UiBase {

class ArrowedWindowPrivate;

/// A frameless popup around one content widget, with an arrow that points at what opened it.
///
/// - It is as large as its content needs, and follows it. While it is shown and the content grows, the tip of
/// the
///   arrow stays where it is on the screen.
/// - Body, arrow and border are one outline. GetArrowPoint() is the outermost pixel that the arrow is painted
/// to.
/// - It takes neither focus nor activation; its content may.
/// - It shows its content with itself, and hides when the content is hidden, though not when that is because
///   something around both is hidden.
///
/// With a parent it is a child widget that floats over the parent's others, and its shadow may lie outside of
/// it. Without a parent it is a window, and larger by the room that an enabled shadow needs.
///
/// The content becomes a child of the window. It may be deleted at any time, which hides the window. Main
/// thread only; all sizes are in pixels.
///
/// @code
/// auto* popup = new Vela::UiBase::ArrowedWindow(layer);
/// popup->AttachWidget(new QLabel(tr("50 000 triangles")));
/// popup->SetContentMargin(6);
/// popup->SetArrow(Vela::UiBase::ArrowTop, 10, false, 0, 90, true, 0);
/// popup->EnableShadow(true);
/// popup->move(pointBelowTheButton - popup->GetArrowPoint());
/// popup->show();
/// @endcode
class UI_BASE_EXPORT ArrowedWindow : public QWidget {
  Q_OBJECT

public:
  using SArrowParam = Vela::UiBase::SArrowParam;

  /// Without content and arrow; a child of @p parent floats over it.
  explicit ArrowedWindow(QWidget* parent = nullptr);
  ~ArrowedWindow() override;

  /// \name Content
  /// @{

  /// Takes a widget in as the content. A content with a size hint gets that size, one without keeps the size
  /// it was given. The content before stays as a hidden child. Null, and a widget that contains the window,
  /// are ignored.
  void AttachWidget(QWidget* widget);
  /// Gives the content back, hidden and without a parent: the caller owns it. Hides the window. Null when
  /// there is no content.
  QWidget* DetachWidget();
  /// @}

  /// \name Arrows
  /// @{

  /// Makes this the only arrow and lays the window out. An arrow with NoArrow changes nothing.
  void SetArrow(SArrowParam arrow);
  /// As SetArrow(const SArrowParam&), value by value; the anchor follows from the position.
  void SetArrow(EArrowPosition position, int length, bool fixedAngle, int angle, int tipAngle,
                bool offsetAlongX, int offset);
  /// Appends an arrow to those that a placement may choose from. The first one is the current arrow again.
  /// The window is laid out only for the first.
  void AddArrow(SArrowParam arrow);
  /// As AddArrow(const SArrowParam&), value by value.
  void AddArrow(EArrowPosition position, int length, bool fixedAngle, int angle, int tipAngle,
                bool offsetAlongX, int offset);
  /// All arrows, in the order in which they were added.
  QList<SArrowParam> GetArrowParams() const;
  /// The arrow that is painted. False, and the parameter as it was, when there is none.
  bool GetCurrentArrowParam(SArrowParam& arrow) const;
  /// The outermost pixel of the arrow, in the coordinates of the window, as it was last laid out; (0, 0)
  /// without an arrow.
  QPoint GetArrowPoint() const;
  /// Makes the arrow the current one, lays the window out with it, and gives the size of the window and the
  /// tip of the arrow. The arrow comes back with its angle and its anchor. False, without any change, when
  /// the window has no content or the position is NoArrow.
  bool GetArrowWindowSize(SArrowParam& arrow, QSize& size, QPoint& tip);
  /// Whether a placement may try arrows at all positions, beyond those that were added. Off at first.
  void SetAutoDecideArrowPosition(bool decide);
  /// See SetAutoDecideArrowPosition().
  bool AutoDecideArrowPosition() const;
  /// @}

  /// \name Looks
  /// @{

  /// The line around body and arrow, within the window. A width of 0 is one pixel of the screen, however
  /// small those are; Qt::NoPen is no border. At first it is a grey line of width 0, solid, with bevelled
  /// joins.
  void SetBorder(const QColor& color, int width, Qt::PenStyle style, Qt::PenJoinStyle join);
  /// The distance from the border to the content; 0 at first. It is larger where corners of the content would
  /// lie beyond the rounding.
  void SetContentMargin(int margin);
  /// 4 at first.
  void SetRoundCornerRadius(int radius);
  /// The shadow is off at first.
  void EnableShadow(bool enable);
  /// The shadow's looks, to be changed at will, whether it is enabled or not. Owned by the window; another
  /// one after the shadow was disabled, with the same looks.
  QGraphicsDropShadowEffect* GetShadow() const;
  /// Fills a horizontal stripe of the body with a colour: the vertical extent of `rect`, in the coordinates
  /// of the window, over the width of the body. It keeps its place in the body when the window is laid out
  /// anew.
  void SetPartialBackgroundColor(bool on, const QRect& rect, const QColor& color);
  /// The body without the arrow, border included.
  QRect GetBounds() const;
  /// Lays the window out at once. It is done for every change that the window can see.
  void GenerateLayout();
  /// @}

protected:
  /// Takes the private object over.
  ArrowedWindow(ArrowedWindowPrivate& state, QWidget* parent);

  /// Called by the constructors.
  virtual void Initialize();
  /// The content, or null.
  QWidget* InternalWidget() const;

  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

  const std::unique_ptr<ArrowedWindowPrivate> d;

private:
  friend class PopupSight;
  friend class WidgetPosCalculator;
};

} // namespace Vela::UiBase
