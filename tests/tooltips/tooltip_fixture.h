// SPDX-License-Identifier: MIT
#pragma once

#include <support/input.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/widget_pos_calculator.h>
#include <ui_base/tooltips/default_tooltip.h>
#include <ui_base/tooltips/tooltip_manager.h>
#include <ui_base/tooltips/tooltip_object.h>

/// A shown and active window with two neighbours that have tooltips. Times are either over at once or last
/// longer than any test.
class TooltipFixture {
public:
  static constexpr int AT_ONCE = 0;
  static constexpr int NEVER = 600000;

  explicit TooltipFixture(Vela::UiBase::TooltipTimes times = {AT_ONCE, AT_ONCE, NEVER, NEVER, NEVER}) {
    QCursor::setPos(2000, 2000);
    Vela::UiBase::TooltipManager::GetInstance().SetTimes(times);
    window->resize(600, 400);
    widget->setGeometry(150, 180, 60, 30);
    neighbour->setGeometry(350, 180, 60, 30);
    tooltip = new Vela::UiBase::TooltipObject("test", widget);
    other = new Vela::UiBase::TooltipObject("test", neighbour);
    tooltip->SetTooltipText("Fits the <b>mesh</b>");
    other->SetTooltipText("Other");
    tooltip->AttachTo(widget);
    other->AttachTo(neighbour);
    Vela::Test::showActive(*window);
  }
  ~TooltipFixture() {
    delete window;
    Vela::UiBase::TooltipManager::GetInstance().SetTimes({});
  }
  Q_DISABLE_COPY_MOVE(TooltipFixture)

  void moveTo(const QWidget* target) const { moveTo(target, target->rect().center()); }
  void moveTo(const QWidget* target, const QPoint& position) const {
    QCursor::setPos(target->mapToGlobal(position));
    QCoreApplication::processEvents();
  }
  void moveAway() const { moveTo(window, {5, 5}); }
  void press(const QWidget* target) const { Vela::Test::click(*target); }
  void key(Qt::Key which) const { QTest::keyClick(window->windowHandle(), which); }
  /// The tooltip as the user sees it.
  QWidget* shown() const { return tooltip->GetArrowedWindow(); }

  QWidget* const window = new QWidget;
  QPointer<QWidget> widget = new QWidget(window);
  QPointer<QWidget> neighbour = new QWidget(window);
  QPointer<Vela::UiBase::TooltipObject> tooltip;
  QPointer<Vela::UiBase::TooltipObject> other;
};

class CountingHandler : public Vela::UiBase::ATooltipObject::IHoverCallbackHandler {
public:
  void operator()() override { ++calls; }
  int calls = 0;
};
