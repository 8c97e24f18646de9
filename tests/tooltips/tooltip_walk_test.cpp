// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/tooltips/default_tooltip.h>
#include <ui_base/tooltips/tooltip_ex.h>
#include <ui_base/tooltips/tooltip_manager.h>
#include <ui_base/tooltips/tooltip_object.h>
#include <ui_base/tooltips/tooltip_wrapper.h>

#include <algorithm>
#include <array>
#include <random>
#include <utility>

using namespace Vela::UiBase;

namespace {

/// Windows with widgets that have tooltips, where every callback may do anything to any of them.
class Walk {
public:
  explicit Walk(unsigned seed) : m_random(seed), m_handler(*this) {
    for (int i = 0; i < 3; ++i)
      makeWindow();
    for (int i = 0; i < 6; ++i)
      makeTooltip();
  }
  ~Walk() {
    m_acts = 0;
    for (const auto& tooltip : m_tooltips)
      delete tooltip;
    delete m_wrapper;
    for (const auto& window : m_windows)
      delete window;
  }
  Q_DISABLE_COPY_MOVE(Walk)

  void step() {
    m_acts = 3;
    m_inEvent = true;
    if (TooltipObject* const tooltip = any(m_tooltips); tooltip && number(0, 1))
      tooltip->ShowTooltip();
    m_inEvent = false;
    act();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_acts = 0;
    Vela::Test::settle();
    restock();
    check();
  }
  const auto& hits() const { return m_hits; }
  int shown() const { return m_shown; }

private:
  class Handler : public ATooltipObject::IHoverCallbackHandler {
  public:
    explicit Handler(Walk& walk) : m_walk(walk) {}
    void operator()() override { m_walk.act(); }

  private:
    Walk& m_walk;
  };

  struct Target {
    TooltipObject& tooltip;
    QWidget& widget;
    QWidget& window;
  };
  using Act = void (*)(Walk&, const Target&);
  static const std::array<Act, 32> Acts;

  int number(int from, int to) { return std::uniform_int_distribution<>(from, to)(m_random); }
  template <class T>
  T* any(const QList<QPointer<T>>& all) {
    return all.isEmpty() ? nullptr : all.at(number(0, int(all.size()) - 1)).data();
  }

  void makeWindow() {
    auto* const window = new QWidget;
    window->setGeometry(number(0, 300), number(0, 200), number(60, 500), number(30, 400));
    for (int i = 0; i < 3; ++i) {
      auto* const widget = new QWidget(window);
      widget->setGeometry(number(0, 400), number(0, 300), number(4, 80), number(4, 40));
      new QWidget(widget);
      m_widgets.append(widget);
    }
    window->show();
    m_windows.append(window);
  }
  void makeTooltip() {
    auto* const tooltip = new TooltipObject(group());
    tooltip->SetTooltipType(ETooltipType(number(0, 4)));
    tooltip->SetCustomTooltipShowUpTime(0);
    tooltip->SetCustomTooltipDismissTime(0);
    tooltip->SetEnableHoverEvents(true);
    tooltip->SetHoveredStateCallbackHandler(&m_handler);
    tooltip->SetNormalStateCallbackHandler(&m_handler);
    tooltip->SetTooltipText(text());
    tooltip->AttachTo(any(m_widgets));
    QObject::connect(tooltip, &ATooltipObject::HelpRequested, &m_context, [this] { act(); });
    m_tooltips.append(tooltip);
  }
  void restock() {
    m_windows.removeAll(nullptr);
    m_widgets.removeAll(nullptr);
    m_tooltips.removeAll(nullptr);
    while (m_windows.size() < 3)
      makeWindow();
    while (m_tooltips.size() < 6)
      makeTooltip();
    if (!m_wrapper)
      m_wrapper = new TooltipWrapper(group());
  }
  QString group() { return QString::number(number(0, 2)); }
  QString text() { return QStringLiteral("some words ").repeated(number(0, 12)); }

  /// One of what anybody may do at any time; counts which.
  void act() {
    if (m_acts <= 0)
      return;
    --m_acts;
    const auto which = std::size_t(number(0, int(Acts.size()) - 1));
    ++m_hits.at(which);
    TooltipObject* const tooltip = any(m_tooltips);
    QWidget* const widget = any(m_widgets);
    QWidget* const window = any(m_windows);
    const bool inEvent = std::exchange(m_inEvent, true);
    m_deletesLater = inEvent;
    if (tooltip && widget && window)
      Acts.at(which)(*this, {*tooltip, *widget, *window});
  }
  /// A widget may be in the middle of an event that has called.
  void end(QWidget& widget) {
    if (m_deletesLater)
      widget.deleteLater();
    else
      delete &widget;
  }
  QWidget* content() {
    if (number(0, 4) == 0)
      return nullptr;
    if (number(0, 1))
      return new DefaultTooltip(text());
    auto* const rich = new TooltipEx(text(), text());
    rich->SetUnfoldTime(0);
    rich->SetTooltipIndex(3);
    auto* const advanced = new QWidget;
    advanced->setFixedSize(number(10, 300), number(10, 300));
    rich->SetAdvancedWidget(advanced);
    QObject::connect(rich, &TooltipEx::UnfoldedChanged, &m_context, [this] { act(); });
    return rich;
  }

  void check() {
    QHash<QString, int> visible;
    for (const auto& tooltip : std::as_const(m_tooltips)) {
      if (!tooltip->IsVisible())
        continue;
      QVERIFY(++visible[tooltip->TooltipGroup()] == 1);
      const QWidget* const owner = tooltip->AttachedWidget();
      QVERIFY(owner && owner->isVisible() && tooltip->IsTooltipEnabled());
      const QWidget* const content = tooltip->TooltipControl();
      const QWidget* const popup = content ? content->parentWidget() : nullptr;
      if (popup && popup == tooltip->GetArrowedWindow())
        checkPlace(*tooltip->GetArrowedWindow());
    }
  }
  void checkPlace(const ArrowedWindow& popup) {
    const QRect seen(popup.mapToGlobal(popup.GetBounds().topLeft()), popup.GetBounds().size());
    const QWidget* const layer = popup.parentWidget();
    const QRect room =
        popup.isWindow() ? popup.screen()->geometry() : QRect(layer->mapToGlobal(QPoint()), layer->size());
    const QRect both = seen & room;
    const bool fits = seen.width() <= room.width() && seen.height() <= room.height();
    const bool inSight = both.width() * both.height() * 10 >= seen.width() * seen.height() * 9;
    QVERIFY(!fits || inSight);
    ++m_shown;
  }

  std::mt19937 m_random;
  Handler m_handler;
  QObject m_context;
  QList<QPointer<QWidget>> m_windows;
  QList<QPointer<QWidget>> m_widgets;
  QList<QPointer<TooltipObject>> m_tooltips;
  QPointer<TooltipWrapper> m_wrapper = new TooltipWrapper(QStringLiteral("0"));
  std::array<int, Acts.size()> m_hits{};
  int m_acts = 0;
  bool m_inEvent = true;
  bool m_deletesLater = true;
  int m_shown = 0;
};

const std::array<Walk::Act, 32> Walk::Acts{
    [](Walk&, const Target& on) { on.tooltip.ShowTooltip(); },
    [](Walk&, const Target& on) { on.tooltip.HideTooltip(); },
    [](Walk& walk, const Target& on) { on.tooltip.SetEnableTooltip(walk.number(0, 2) > 0); },
    [](Walk& walk, const Target& on) { on.tooltip.SetTooltipText(walk.text()); },
    [](Walk& walk, const Target& on) { on.tooltip.SetTooltipControl(walk.content(), walk.number(0, 1)); },
    [](Walk& walk, const Target& on) {
      const auto make = [&walk] {
        walk.act();
        return walk.content();
      };
      on.tooltip.SetTooltipFactory(make, walk.text(), walk.number(0, 1));
    },
    [](Walk& walk, const Target& on) { on.tooltip.SetTooltipType(ETooltipType(walk.number(0, 4))); },
    [](Walk& walk, const Target& on) { on.tooltip.SetTooltipGroup(walk.group()); },
    [](Walk&, const Target& on) { on.tooltip.AttachTo(&on.widget); },
    [](Walk&, const Target& on) { on.tooltip.Detach(); },
    [](Walk& walk, const Target& on) {
      on.tooltip.SetTooltipLayer(walk.number(0, 1) ? nullptr : &on.window);
    },
    [](Walk&, const Target& on) { QCursor::setPos(on.widget.mapToGlobal(QPoint(1, 1))); },
    [](Walk&, const Target& on) { QTest::mouseClick(&on.widget, Qt::LeftButton); },
    [](Walk&, const Target& on) { QTest::keyClick(&on.widget, Qt::Key_Escape); },
    [](Walk&, const Target& on) { QTest::keyClick(&on.window, Qt::Key_F1); },
    [](Walk& walk, const Target& on) { on.widget.move(walk.number(0, 300), walk.number(0, 200)); },
    [](Walk& walk, const Target& on) { on.window.resize(walk.number(60, 500), walk.number(30, 400)); },
    [](Walk& walk, const Target& on) { on.widget.setVisible(walk.number(0, 2) > 0); },
    [](Walk&, const Target& on) {
      on.widget.setParent(&on.window);
      on.widget.show();
    },
    [](Walk&, const Target& on) { on.window.activateWindow(); },
    [](Walk&, const Target& on) { on.widget.setFocus(Qt::TabFocusReason); },
    [](Walk&, const Target& on) { delete &on.tooltip; },
    [](Walk& walk, const Target& on) { walk.end(on.widget); },
    [](Walk& walk, const Target& on) { walk.number(0, 3) == 0 ? walk.end(on.window) : void(); },
    [](Walk&, const Target& on) { on.tooltip.deleteLater(); },
    [](Walk& walk, const Target& on) {
      if (QWidget* const content = on.tooltip.TooltipControl())
        walk.end(*content);
    },
    [](Walk&, const Target&) { QEventLoop().processEvents(); },
    [](Walk&, const Target&) { TooltipManager::GetInstance().onViewVisibilityChange(false); },
    [](Walk& walk, const Target& on) {
      TooltipManager::GetInstance().SetTooltipLayer(walk.group(), walk.number(0, 1) ? nullptr : &on.window);
    },
    [](Walk& walk, const Target& on) {
      walk.m_wrapper->SetTooltipText(walk.text());
      const QPoint spot(walk.number(0, 300), walk.number(0, 200));
      walk.m_wrapper->Show(on.window.mapToGlobal(spot), true, ShowUntilHidden);
    },
    [](Walk&, const Target& on) {
      on.window.hide();
      on.window.show();
    },
    [](Walk&, const Target& on) { on.tooltip.GetArrowedWindow()->hide(); },
};

} // namespace

class TooltipWalkTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void callbacksThatAct() {
    const unsigned seed = qEnvironmentVariable("VELA_FUZZ_SEED", QStringLiteral("2764615421")).toUInt();
    const int steps = qEnvironmentVariable("VELA_FUZZ_STEPS", QStringLiteral("1500")).toInt();
    qInfo("seed %u, %d steps", seed, steps);
    TooltipManager& manager = TooltipManager::GetInstance();
    manager.SetTimes({0, 0, 600000, 600000, 0});
    {
      Walk walk(seed);
      for (int i = 0; i < steps && !QTest::currentTestFailed(); ++i)
        walk.step();
      QVERIFY(steps < 1000 ||
              std::all_of(walk.hits().begin(), walk.hits().end(), [](int hits) { return hits > 0; }));
      QVERIFY(steps < 1000 || walk.shown() > steps / 50);
    }
    for (int group = 0; group <= 2; ++group)
      manager.SetTooltipLayer(QString::number(group), nullptr);
    manager.SetTimes({});
    QCursor::setPos(2000, 2000);
  }
};

VELA_TEST_MAIN(TooltipWalkTest)
#include "tooltip_walk_test.moc"
