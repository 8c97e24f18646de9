// SPDX-License-Identifier: MIT
#include "popup_sight.h"

#include "arrow_outline.h"
#include "arrowed_window.h"
#include "arrowed_window_p.h"
#include "placement_sight.h"
#include "popup_window.h"
#include "sub_widgets.h"
#include "widget_pos_calculator.h"
#include "widget_pos_calculator_p.h"

#include <ui_base/core/dying.h>

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

namespace Vela::UiBase {

/// Where a popup belongs that has left its parent.
struct PopupHome {
  QPointer<QWidget> parent;
  QPointer<QWidget> refuge;
  Qt::WindowFlags flags;
  QMetaObject::Connection parentDeath = {};
};

namespace {

using Placement::KeptStance;
using Placement::Stance;

constexpr const char* homeProperty = "vela_popup_home";

PopupHome homeOf(const QWidget& popup) { return popup.property(homeProperty).value<PopupHome>(); }

void leaveFor(QWidget& popup, QWidget* refuge, Qt::WindowFlags flags) {
  QWidget* const parent = popup.parentWidget();
  PopupHome home{parent, refuge, popup.windowFlags()};
  // A bar or a panel would take the activation along.
  popup.setAttribute(Qt::WA_ShowWithoutActivating);
  leaveFocus(popup);
  popup.setParent(refuge, flags);
  // It belongs to its parent all the same.
  home.parentDeath = QObject::connect(parent, &QObject::destroyed, &popup, [&popup] {
    const PopupHome left = homeOf(popup);
    const QPointer<QWidget> orphan(&popup);
    if (left.refuge && popup.parentWidget() == left.refuge)
      popup.hide(); // while those who hear of it still find a living one
    if (orphan && left.refuge && orphan->parentWidget() == left.refuge)
      delete orphan;
  });
  popup.setProperty(homeProperty, QVariant::fromValue(home));
}

/// A place for popups to be in; its area is in global coordinates.
struct Room {
  QWidget* parent = nullptr; // null for the screen
  QRect area;
};

QRect globalRect(const QWidget& widget) { return {widget.mapToGlobal(QPoint(0, 0)), widget.size()}; }

} // namespace

/// One placing of a popup. All rectangles are global.
class PopupSight {
public:
  using Fit = std::function<void(const QSize&)>;

  PopupSight(WidgetPosCalculator& calculator, QWidget& popup, const Fit& fit)
      : m_calculator(&calculator),
        m_popup(&popup),
        m_arrows(qobject_cast<ArrowedWindow*>(&popup)),
        m_fit(fit) {
    measure();
  }

  void place(const std::function<QPoint()>& position, Qt::WindowType outside);

private:
  /// Those who are called may end anything.
  bool isAlive() const { return m_calculator && m_popup && m_calculator->Widget() == m_popup; }
  void measure();
  QList<Room> rooms() const;
  bool isInSight(const QRect& seen, const Room& room) const;
  QRect seenOfPopup() const;
  QRect areaOf(const Room& room) const;

  bool fitTo(const QSize& size);
  void listStances(const QPoint& wanted);
  void addArrow(const SArrowParam& arrow, EDirection side);
  void addArrows();

  /// The stance in the room of that number; none when the popup has ended.
  std::optional<KeptStance> stanceIn(qsizetype number, const QPoint& wanted);
  KeptStance bestStance(qsizetype number, const QPoint& wanted);
  bool goTo(const Room& room, Qt::WindowType outside);
  void settle(const QPoint& wanted);
  void move(const KeptStance& kept);

  const QPointer<WidgetPosCalculator> m_calculator;
  const QPointer<QWidget> m_popup;
  ArrowedWindow* const m_arrows;
  const Fit& m_fit;
  QPoint m_origin;
  Placement::Target m_target;
  bool m_hasReference = false;
  QMargins m_beside;
  QList<Stance> m_stances;
  QList<SArrowParam> m_stanceArrows;
};

void PopupSight::measure() {
  const QWidget* const parent = m_popup->parentWidget();
  m_origin = parent ? parent->mapToGlobal(QPoint(0, 0)) : QPoint();
  m_target = m_calculator->d->target(QRect());
  m_hasReference = m_calculator->GetRefGeometry(m_target.reference);
  m_target.reference.translate(m_origin);
  m_beside = SubWidgets::takenBeside(m_arrows ? m_arrows->InternalWidget() : m_popup.data());
}

namespace {

bool pointsAwayFromAnEdge(const ArrowLayout& layout, EDirection side) {
  const QRect& body = layout.bounds;
  const bool overX = layout.tip.x() >= body.left() && layout.tip.x() <= body.right();
  const bool overY = layout.tip.y() >= body.top() && layout.tip.y() <= body.bottom();
  return side == Top || side == Bottom ? overX && !overY : overY && !overX;
}

int along(EDirection side, const QPoint& point) {
  return side == Top || side == Bottom ? point.x() : point.y();
}

} // namespace

void PopupSight::addArrow(const SArrowParam& arrow, EDirection side) {
  const ArrowLayout layout = m_arrows->d->measure(arrow);
  const QRect shape = layout.bounds | QRect(layout.tip, QSize(1, 1));
  Stance stance{.side = side,
                .rect = shape.translated(Placement::pointedAt(m_target, arrow, side) - layout.tip)};
  stance.arrowed = true;
  const int start = along(side, shape.topLeft());
  stance.tip = along(side, layout.tip) - start;
  stance.lastTip = stance.firstTip - 1;
  if (pointsAwayFromAnEdge(layout, side)) {
    // On the corner itself it would belong to the other edge.
    const int lean = along(side, layout.tip - layout.arrow.anchor) - start;
    stance.firstTip = std::min(stance.tip, along(side, layout.content.topLeft()) + 1 + lean);
    stance.lastTip = std::max(stance.tip, along(side, layout.content.bottomRight()) - 1 + lean);
  }
  m_stances.append(stance);
  m_stanceArrows.append(layout.arrow);
}

void PopupSight::addArrows() {
  const QList<SArrowParam> given = m_arrows->GetArrowParams();
  const QList<EDirection> sides = Placement::fullPriorityList(m_calculator->Directions());
  QList<ArrowPair> pairs = Placement::arrowPairs(given, m_arrows->AutoDecideArrowPosition(), sides);
  if (pairs.isEmpty())
    return;
  // In the middle of an edge there is one for each side, whatever was given.
  const QList<ArrowPair> others = Placement::arrowPairs(given, true, sides);
  std::copy_if(others.cbegin(), others.cend(), std::back_inserter(pairs),
               [](const ArrowPair& pair) { return pair.first.position <= ArrowRight; });
  for (const auto& [arrow, side] : std::as_const(pairs))
    addArrow(arrow, side);
}

void PopupSight::listStances(const QPoint& wanted) {
  m_stances.clear();
  m_stanceArrows.clear();
  const QRect seen = seenOfPopup();
  if (!m_hasReference) {
    m_stances = {{.rect = seen.translated(wanted + m_origin)}};
    return;
  }
  if (m_arrows && m_arrows->InternalWidget())
    addArrows();
  if (m_stances.isEmpty())
    m_stances = Placement::plainStances(m_target, Placement::fullPriorityList(m_calculator->Directions()),
                                        seen.size());
}

QRect PopupSight::seenOfPopup() const { return m_arrows ? m_arrows->d->shape() : m_popup->rect(); }

QList<Room> PopupSight::rooms() const {
  const QScreen* screen = m_hasReference ? QGuiApplication::screenAt(m_target.reference.center()) : nullptr;
  const QRect onScreen = screen ? screen->geometry() : QRect();
  const Room everywhere{nullptr, (screen ? screen : m_popup->screen())->availableGeometry()};
  QWidget* const parent = m_popup->parentWidget();
  if (m_popup->isWindow() || !parent)
    return {everywhere};

  // A menu is as large as its entries, which nothing is to cover.
  if (parent->windowType() == Qt::Popup && m_popup->isHidden())
    return {everywhere};
  QList<Room> rooms;
  const QRect window = globalRect(*parent->window());
  const QRect inWindow = onScreen.intersects(window) ? onScreen & window : window;
  rooms.append({parent, globalRect(*parent) & inWindow});
  if (!m_popup->isHidden() || !m_hasReference)
    return rooms;
  if (!parent->isWindow())
    rooms.append({parent->window(), inWindow});
  rooms.append(everywhere);
  return rooms;
}

QRect PopupSight::areaOf(const Room& room) const {
  const QRect withoutSides = room.area.marginsRemoved(m_beside);
  return withoutSides.width() >= m_popup->width() && withoutSides.height() >= m_popup->height() ? withoutSides
                                                                                                : room.area;
}

/// What a search has taken unseen is looked at here; and what it has compared with the room of another
/// window.
bool PopupSight::isInSight(const QRect& seen, const Room& room) const {
  if (!room.area.contains(seen))
    return false;
  const PlacementCandidate* const taken = m_calculator->LastSearch().taken();
  const bool unseen = taken && taken->outcome == PlacementSlid;
  return !unseen || (!Placement::covers(seen, m_target) && QApplication::activeWindow() == m_popup->window());
}

bool PopupSight::fitTo(const QSize& size) {
  if (m_fit)
    m_fit(size);
  if (isAlive())
    measure();
  return isAlive();
}

KeptStance PopupSight::bestStance(qsizetype number, const QPoint& wanted) {
  listStances(wanted);
  return Placement::keepInSight(m_stances, m_target, areaOf(rooms().value(number)));
}

std::optional<KeptStance> PopupSight::stanceIn(qsizetype number, const QPoint& wanted) {
  if (!fitTo(rooms().value(number).area.size()))
    return std::nullopt;
  const KeptStance kept = bestStance(number, wanted);
  if (kept.isWhole() || !m_fit)
    return kept;
  const QSize beyond = kept.rect.size() - (kept.rect & areaOf(rooms().value(number))).size();
  if (!fitTo(m_popup->size() - beyond.expandedTo({0, 0})))
    return std::nullopt;
  return bestStance(number, wanted);
}

void PopupSight::place(const std::function<QPoint()>& position, Qt::WindowType outside) {
  if (!fitTo(rooms().constFirst().area.size()))
    return;
  const QPoint wanted = position();
  if (!isAlive())
    return;
  measure();
  if (isInSight(seenOfPopup().translated(wanted + m_origin), rooms().constFirst())) {
    m_popup->move(m_popup->isWindow() ? wanted + m_origin : wanted);
    return;
  }
  qint64 leastHidden = std::numeric_limits<qint64>::max();
  qsizetype best = 0;
  for (qsizetype i = 0; i < rooms().size() && leastHidden > 0; ++i) {
    const std::optional<KeptStance> kept = stanceIn(i, wanted);
    if (!kept)
      return;
    if (kept->hidden < leastHidden) {
      leastHidden = kept->hidden;
      best = i;
    }
  }
  if (goTo(rooms().value(best), outside))
    settle(wanted);
}

// Leaving a parent hides what the mouse is over, of which others hear.
bool PopupSight::goTo(const Room& room, Qt::WindowType outside) {
  QWidget* const refuge = m_popup->window();
  if (isDying(*refuge) || (room.parent && isDying(*room.parent)))
    return false;
  if (room.parent && room.parent != m_popup->parentWidget())
    leaveFor(*m_popup, room.parent, m_popup->windowFlags());
  else if (!room.parent && !m_popup->isWindow())
    leaveFor(*m_popup, refuge, outside | Qt::FramelessWindowHint);
  return isAlive();
}

void PopupSight::settle(const QPoint& wanted) {
  const std::optional<KeptStance> kept = stanceIn(0, wanted);
  if (!kept)
    return;
  move(kept->isWhole() ? *kept : Placement::keepInside(m_stances, m_target, areaOf(rooms().constFirst())));
}

void PopupSight::move(const KeptStance& kept) {
  if (kept.index < m_stanceArrows.size()) {
    SArrowParam arrow = m_stanceArrows.at(kept.index);
    const Stance& stance = m_stances.at(kept.index);
    if (kept.slide != 0) {
      const int anchor = along(stance.side, arrow.anchor);
      arrow.offset = 0;
      arrow.offsetAlongX = stance.side == Top || stance.side == Bottom;
      arrow.offset = anchor + kept.slide - along(stance.side, m_arrows->d->measure(arrow).arrow.anchor);
    }
    QSize size;
    QPoint tip;
    m_arrows->GetArrowWindowSize(arrow, size, tip);
    if (!m_popup)
      return;
  }
  const QPoint position = kept.rect.topLeft() - seenOfPopup().topLeft();
  m_popup->move(m_popup->isWindow() ? position : position - m_popup->parentWidget()->mapToGlobal(QPoint()));
}

void bringHome(QWidget& popup) {
  const PopupHome home = homeOf(popup);
  if (!home.refuge || !popup.isHidden() || isDying(popup))
    return;
  QObject::disconnect(home.parentDeath);
  popup.setProperty(homeProperty, QVariant());
  // Who has given it another parent meanwhile wants it there.
  if (!home.parent || isDying(*home.parent) || popup.parentWidget() != home.refuge)
    return;
  leaveFocus(popup);
  popup.setParent(home.parent, home.flags);
}

void placeInSight(WidgetPosCalculator& calculator, const std::function<QPoint()>& position,
                  Qt::WindowType outside, const std::function<void(const QSize&)>& fit) {
  const QPointer<WidgetPosCalculator> alive(&calculator);
  if (QWidget* const popup = calculator.Widget())
    bringHome(*popup);
  QWidget* const popup = alive ? alive->Widget() : nullptr;
  if (popup && !isDying(*popup))
    PopupSight(*alive, *popup, fit).place(position, outside);
}

} // namespace Vela::UiBase
