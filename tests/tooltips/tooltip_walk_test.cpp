// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/tooltips/default_tooltip.h>
#include <ui_base/tooltips/tooltip_ex.h>
#include <ui_base/tooltips/tooltip_manager.h>
#include <ui_base/tooltips/tooltip_object.h>
#include <ui_base/tooltips/tooltip_wrapper.h>

#include <QCursor>
#include <QEventLoop>
#include <QScreen>

#include <algorithm>
#include <array>
#include <functional>
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
    const auto which = std::size_t(number(0, int(m_hits.size()) - 1));
    ++m_hits.at(which);
    TooltipObject* const tooltip = any(m_tooltips);
    QWidget* const widget = any(m_widgets);
    QWidget* const window = any(m_windows);
    const bool inEvent = std::exchange(m_inEvent, true);
    m_deletesLater = inEvent;
    if (tooltip && widget && window)
      run(int(which), *tooltip, *widget, *window);
  }
  void run(int which, TooltipObject& tooltip, QWidget& widget, QWidget& window) {
    switch (which) {
    case 0:
      return tooltip.ShowTooltip();
    case 1:
      return tooltip.HideTooltip();
    case 2:
      return tooltip.SetEnableTooltip(number(0, 2) > 0);
    case 3:
      return tooltip.SetTooltipText(text());
    case 4:
      return tooltip.SetTooltipControl(content(), number(0, 1));
    case 5:
      return tooltip.SetTooltipFactory(
          [this] {
            act();
            return content();
          },
          text(), number(0, 1));
    case 6:
      return tooltip.SetTooltipType(ETooltipType(number(0, 4)));
    case 7:
      return tooltip.SetTooltipGroup(group());
    case 8:
      return tooltip.AttachTo(&widget);
    case 9:
      return tooltip.Detach();
    case 10:
      return tooltip.SetTooltipLayer(number(0, 1) ? nullptr : &window);
    default:
      runOnWidgets(which - 11, tooltip, widget, window);
    }
  }
  void runOnWidgets(int which, TooltipObject& tooltip, QWidget& widget, QWidget& window) {
    switch (which) {
    case 0:
      return QCursor::setPos(widget.mapToGlobal(QPoint(1, 1)));
    case 1:
      return QTest::mouseClick(&widget, Qt::LeftButton);
    case 2:
      return QTest::keyClick(&widget, Qt::Key_Escape);
    case 3:
      return QTest::keyClick(&window, Qt::Key_F1);
    case 4:
      return widget.move(number(0, 300), number(0, 200));
    case 5:
      return window.resize(number(60, 500), number(30, 400));
    case 6:
      return widget.setVisible(number(0, 2) > 0);
    case 7:
      widget.setParent(&window);
      return widget.show();
    case 8:
      return window.activateWindow();
    case 9:
      return widget.setFocus(Qt::TabFocusReason);
    case 10:
      delete &tooltip;
      return;
    case 11:
      return end(widget);
    case 12:
      return number(0, 3) == 0 ? end(window) : void();
    case 13:
      return tooltip.deleteLater();
    case 14:
      return tooltip.TooltipControl() ? end(*tooltip.TooltipControl()) : void();
    case 15:
      QEventLoop().processEvents();
      return;
    case 16:
      return TooltipManager::GetInstance().onViewVisibilityChange(false);
    case 17:
      return TooltipManager::GetInstance().SetTooltipLayer(group(), number(0, 1) ? nullptr : &window);
    case 18:
      m_wrapper->SetTooltipText(text());
      return m_wrapper->Show(window.mapToGlobal(QPoint(number(0, 300), number(0, 200))), true,
                             ShowUntilHidden);
    case 19:
      window.hide();
      window.show();
      return;
    default:
      tooltip.GetArrowedWindow()->hide();
    }
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

  static bool hasRoomBeside(const QRect& owner, const QRect& room, const QRect& popup) {
    constexpr int arrow = 12;
    const int above = std::max(owner.top() - room.top(), room.bottom() - owner.bottom());
    const int beside = std::max(owner.left() - room.left(), room.right() - owner.right());
    return above >= popup.height() + arrow || beside >= popup.width() + arrow;
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
        checkPlace(*tooltip->GetArrowedWindow(), *owner);
    }
  }
  void checkPlace(const ArrowedWindow& popup, const QWidget& owner) {
    const QRect seen(popup.mapToGlobal(popup.GetBounds().topLeft()), popup.GetBounds().size());
    const QWidget* const layer = popup.parentWidget();
    const QRect room =
        popup.isWindow() ? popup.screen()->geometry() : QRect(layer->mapToGlobal(QPoint()), layer->size());
    const QRect both = seen & room;
    const bool fits = seen.width() <= room.width() && seen.height() <= room.height();
    const bool inSight = both.width() * both.height() * 10 >= seen.width() * seen.height() * 9;
    QVERIFY2(!fits || inSight, qPrintable(QStringLiteral("%1,%2 %3x%4 in %5x%6")
                                              .arg(seen.x())
                                              .arg(seen.y())
                                              .arg(seen.width())
                                              .arg(seen.height())
                                              .arg(room.width())
                                              .arg(room.height())));
    const QRect ownerRect(owner.mapToGlobal(QPoint()), owner.size());
    QVERIFY(!room.contains(ownerRect) || !seen.intersects(ownerRect) ||
            !hasRoomBeside(ownerRect, room, seen));
    ++m_shown;
  }

  std::mt19937 m_random;
  Handler m_handler;
  QObject m_context;
  QList<QPointer<QWidget>> m_windows;
  QList<QPointer<QWidget>> m_widgets;
  QList<QPointer<TooltipObject>> m_tooltips;
  QPointer<TooltipWrapper> m_wrapper = new TooltipWrapper(QStringLiteral("0"));
  std::array<int, 32> m_hits{};
  int m_acts = 0;
  bool m_inEvent = true;
  bool m_deletesLater = true;
  int m_shown = 0;
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
