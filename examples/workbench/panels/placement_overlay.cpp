// SPDX-License-Identifier: MIT
#include "placement_overlay.h"

#include <ui_base/core/language.h>
#include <ui_base/popups/widget_pos_calculator.h>
#include <vlk_common_res/styles.h>

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace Workbench {

using namespace Vela::UiBase;
using Vela::Resource::Styles;

namespace {

constexpr int LabelPadding = 3; // px

// Many windows may share a corner: labels go down one line after another.
QRect labelRect(const QPainter& painter, const QRect& place, const QString& text, qsizetype line) {
  const QFontMetrics metrics = painter.fontMetrics();
  const QSize size(metrics.horizontalAdvance(text) + 2 * LabelPadding, metrics.height() + 2);
  return {place.topLeft() + QPoint(LabelPadding, LabelPadding + int(line) * size.height()), size};
}

} // namespace

PlacementOverlay::PlacementOverlay(QWidget& window) : QWidget(&window) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  Vela::UiBase::keepTranslated(this, [this] {
    setAccessibleName(tr("Placement of popups"));
    update();
  });
  setGeometry(window.rect());
  hide();
  window.installEventFilter(this);
  WidgetPosCalculator::SetSearchObserver([this](const WidgetPosCalculator& calculator) { take(calculator); });
}

PlacementOverlay::~PlacementOverlay() { WidgetPosCalculator::SetSearchObserver(nullptr); }

void PlacementOverlay::take(const WidgetPosCalculator& calculator) {
  const QWidget* const popup = calculator.Widget();
  if (!popup || popup->window() != window())
    return;
  const QWidget* const parent = popup->parentWidget();
  m_origin = parent ? parent->mapTo(window(), QPoint()) : window()->mapFromGlobal(QPoint());
  m_search = calculator.LastSearch();
  setAccessibleDescription(m_search.toString());
  // After the popup, which comes to the front when it is shown.
  QMetaObject::invokeMethod(this, &QWidget::raise, Qt::QueuedConnection);
  update();
  Q_EMIT searchChanged();
}

bool PlacementOverlay::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget() && event->type() == QEvent::Resize)
    setGeometry(parentWidget()->rect());
  return QWidget::eventFilter(watched, event);
}

QString PlacementOverlay::problems(const PlacementCandidate& candidate) const {
  if (candidate.outcome == PlacementNoLayout)
    return tr("no layout");
  QStringList list;
  const QMargins beyond = m_search.beyond(candidate);
  const std::pair<int, QString> edges[] = {{beyond.left(), tr("left")},
                                           {beyond.top(), tr("above")},
                                           {beyond.right(), tr("right")},
                                           {beyond.bottom(), tr("below")}};
  for (const auto& [pixels, edge] : edges) {
    if (pixels > 0)
      list += tr("%1 px %2", "beyond an edge").arg(pixels).arg(edge);
  }
  if (candidate.coversReference)
    list += tr("covers");
  if (candidate.isTaken())
    list += tr("taken");
  return list.isEmpty() ? tr("refused") : list.join(QStringLiteral(", "));
}

void PlacementOverlay::paintCandidate(QPainter& painter, qsizetype index) const {
  const PlacementCandidate& candidate = m_search.candidates()[index];
  const Styles& styles = Styles::Instance();
  const bool taken = candidate.isTaken();
  const QColor color = taken ? styles.ColorAccent() : styles.ColorTextError();
  painter.setPen(QPen(color, taken ? 3 : 1, taken ? Qt::SolidLine : Qt::DashLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(candidate.rect);

  const QString text = tr("%1: %2", "number of a place").arg(index + 1).arg(problems(candidate));
  QRect label = labelRect(painter, candidate.rect, text, index);
  const QRect seen = rect().translated(-m_origin);
  label.moveLeft(std::clamp(label.left(), seen.left(), std::max(seen.left(), seen.right() - label.width())));
  label.moveTop(std::clamp(label.top(), seen.top(), std::max(seen.top(), seen.bottom() - label.height())));
  painter.setPen(Qt::NoPen);
  painter.setBrush(taken ? color : styles.ColorWindowBack());
  painter.drawRect(label);
  painter.setPen(taken ? styles.ColorAccentText() : color);
  painter.drawText(label, Qt::AlignCenter, text);
}

void PlacementOverlay::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setFont(Styles::Instance().FontLabel());
  painter.translate(m_origin);
  painter.setPen(QPen(Styles::Instance().ColorTextLabel(), 1, Qt::DotLine));
  if (m_search.freeArea())
    painter.drawRect(*m_search.freeArea());
  painter.setPen(QPen(Styles::Instance().ColorAccent(), 1));
  painter.drawRect(m_search.reference());
  for (qsizetype i = 0; i < m_search.candidates().size(); ++i) {
    if (!m_search.candidates()[i].isTaken())
      paintCandidate(painter, i);
  }
  for (qsizetype i = 0; i < m_search.candidates().size(); ++i) {
    if (m_search.candidates()[i].isTaken())
      paintCandidate(painter, i);
  }
}

} // namespace Workbench
