// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/base_view_controller.h>
#include <ui_base/views/presented_view.h>

#include <QList>

#include <memory>
#include <vector>

class QWidget;

namespace Vela::UiBase {

class CoveredChildren;

/// A base view and what is presented over it, from back to front: who lies in front, who was told that it
/// appears, who takes input, and where the focus goes. A view that presents nothing and is not presented is
/// a presentation of its own.
///
/// The last view that is not hidden is the front; it covers all others, with the views that lie in them. Each
/// view in the order is a child of the one that presented it, so what is presented over a view moves, hides
/// and dies with it.
///
/// Shared by its views. Everything but the queries calls out to controllers and widgets, which may do
/// anything, also to this presentation: hold it by of() meanwhile.
class Presentation : public std::enable_shared_from_this<Presentation> {
public:
  explicit Presentation(BaseView& base);
  ~Presentation();
  Presentation(const Presentation&) = delete;
  Presentation& operator=(const Presentation&) = delete;

  static std::shared_ptr<Presentation> of(const BaseView& view);

  /// @name Queries
  /// @{
  bool isCovered(const BaseView& view) const { return m_layers.size() > 1 && front() != &view; }
  BaseView* front() const;
  /// The view that presented this one; null when it is not presented, or on its way out.
  BaseView* presenterOf(const BaseView& view) const;
  ETransitionDirection directionOf(const BaseView& view) const;
  /// Whether what the view has to say may be seen.
  bool mayNotify(const BaseView& view) const;
  QList<PresentedView> describe() const;
  /// @}

  /// Puts a view in front of another. @return whether it stands there at the end.
  static bool present(BaseView& presenter, BaseView& view, ETransitionDirection direction);
  /// Ends the presentation of a view and closes it. @return whether it closed.
  static bool dismiss(BaseView& view);

  /// @name What views report
  /// @{
  void willShow(BaseView& view, bool takesFocus);
  void didLoad(BaseView& view);
  void willHide(BaseView& view, bool unmapped);
  void didHide(BaseView& view, bool hadFocus);
  void reparented(BaseView& view);
  void enabledChanged(BaseView& view);
  void controllerWillChange(BaseView& view);
  void controllerChanged(BaseView& view);
  void viewDies(BaseView& view);
  /// @}

  /// Gives the focus to the front, where it was there before; not to what lies in a view that goes.
  void focusFront(const BaseView* gone = nullptr);
  /// Puts what is presented over a view in front of its other children.
  void raiseOver(const BaseView& presenter) const;
  /// Remembers where in the view the focus is.
  void rememberFocus(BaseView& view);

private:
  using Told = BaseViewController::Told;

  struct Layer {
    QPointer<BaseView> view;
    QPointer<BaseView> presenter; // null for the base view, and for a view on its way out
    ETransitionDirection direction = NoTransition;
    QPointer<QWidget> focus; // in the view, when it was covered or hidden
    bool unmapped = false;   // minimised with its window
    quint64 serial = 0;      // another one each time it is presented
    std::unique_ptr<CoveredChildren> cover;
  };
  using Layers = std::vector<Layer>;

  /// Unlike QWidget::isAncestorOf(), also across windows.
  static bool isWithin(const QObject* object, const QObject* ancestor);

  Layer* find(const BaseView& view);
  const Layer* find(const BaseView& view) const;
  BaseView* base() const;
  bool isBase(const BaseView& view) const;
  bool liesCovered() const;
  quint64 serialOf(const BaseView& view) const;
  BaseView* frontBut(const BaseView* left) const;
  BaseView* leaving() const;

  Layers take(BaseView& view);
  void insert(Layers layers, BaseView& presenter, ETransitionDirection direction);
  void end(BaseView& view);
  static Told told(const BaseView& view);
  void tell(BaseView& view, Told what);
  void tellCovered();
  void settle();
  void cover();
  static void settleWithin(const BaseView& place);

  static bool isBeingMoved(const BaseView& view);
  static bool mayPresent(const BaseView& presenter, const BaseView& view);
  static void moveInto(BaseView* presenter, const QPointer<BaseView>& view);
  static bool show(const QPointer<BaseView>& view, quint64 serial);
  static bool close(const QPointer<BaseView>& view);

  Layers m_layers; // the base view first
};

} // namespace Vela::UiBase
