// SPDX-License-Identifier: MIT
#include "tooltip_fixture.h"

#include <support/rows.h>
#include <vlk_common_res/styles.h>

#include <algorithm>
#include <array>

using namespace Vela::UiBase;
using Vela::Test::settle;

class TooltipLifetimeTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void dyingInAnyOrder() {
    std::vector<int> order{0, 1, 2, 3};
    do {
      for (const bool arrowed : {true, false}) {
        QWidget window;
        window.resize(300, 200);
        window.show();
        const QPointer<QWidget> layer(new QWidget(&window));
        const QPointer<QWidget> widget(new QWidget(&window));
        widget->setGeometry(100, 100, 40, 20);
        widget->show();
        const QPointer<QWidget> content(new QLabel("content"));
        const QPointer<TooltipObject> tooltip(new TooltipObject("test"));
        tooltip->SetTooltipLayer(layer);
        tooltip->SetTooltipControl(content, arrowed);
        tooltip->AttachTo(widget);
        tooltip->ShowTooltip();
        QVERIFY(content->isVisible());
        const std::array<QPointer<QObject>, 4> parts{layer.data(), widget.data(), content.data(),
                                                     tooltip.data()};
        for (const int part : order) {
          delete parts[std::size_t(part)];
          settle();
          if (tooltip) {
            QVERIFY(!tooltip->IsVisible() || (layer && widget && content));
            tooltip->ShowTooltip();
          }
        }
        QVERIFY(!content && !TooltipManager::GetInstance().IsTooltipShown("test"));
      }
    } while (std::next_permutation(order.begin(), order.end()));
  }

  void textOutlivesTheLayerItWasShownOn() {
    TooltipFixture f;
    auto* const layer = new QWidget(f.window);
    f.tooltip->SetTooltipLayer(layer);
    f.tooltip->ShowTooltip();
    QVERIFY(f.tooltip->IsVisible());
    delete layer;
    f.tooltip->ShowTooltip();
    QVERIFY(f.tooltip->IsVisible() && f.shown()->isVisible());
    const QPointer<QWidget> shown(f.shown());
    QCOMPARE(shown->parentWidget(), f.window);
    delete f.tooltip;
    settle();
    QVERIFY(!shown);
  }

  void deletedByItsHandler() {
    class Deleting : public ATooltipObject::IHoverCallbackHandler {
    public:
      explicit Deleting(QObject* victim) : m_victim(victim) {}
      void operator()() override { delete m_victim; }

    private:
      const QPointer<QObject> m_victim;
    };
    for (const bool leaves : {true, false}) {
      TooltipFixture f;
      Deleting handler(f.tooltip);
      f.tooltip->SetEnableHoverEvents(true);
      if (leaves)
        f.tooltip->SetNormalStateCallbackHandler(&handler);
      else
        f.tooltip->SetHoveredStateCallbackHandler(&handler);
      f.moveTo(f.widget);
      f.moveAway();
      QVERIFY(!f.tooltip);
    }
    for (const bool pressed : {true, false}) {
      TooltipFixture f({TooltipFixture::AT_ONCE, TooltipFixture::NEVER, TooltipFixture::NEVER,
                        TooltipFixture::NEVER, TooltipFixture::NEVER});
      Deleting handler(f.tooltip);
      f.tooltip->SetEnableHoverEvents(true);
      f.tooltip->SetTooltipType(QuickTooltip);
      f.widget->setFocus();
      QTRY_VERIFY(f.tooltip->IsVisible());
      f.moveTo(f.shown());
      f.tooltip->SetNormalStateCallbackHandler(&handler);
      if (pressed)
        f.press(f.shown());
      else
        f.key(Qt::Key_Space);
      QVERIFY(!f.tooltip);
      // Its window has still to go.
      Vela::Resource::Styles::Instance().setPalette(Vela::Resource::Dark);
      Vela::Resource::Styles::Instance().setPalette(Vela::Resource::Light);
    }
  }

  void endedWhileItIsPlaced_data() {
    const Vela::Test::Rows<std::function<void(const TooltipFixture&)>> row("end");
    row("object", [](const TooltipFixture& f) { delete f.tooltip; });
    row("content", [](const TooltipFixture& f) { delete f.shown(); });
    row("hidden", [](const TooltipFixture& f) { f.tooltip->HideTooltip(); });
  }
  void endedWhileItIsPlaced() {
    QFETCH(std::function<void(const TooltipFixture&)>, end);
    const TooltipFixture f;
    WidgetPosCalculator::SetSearchObserver([&](const WidgetPosCalculator&) { end(f); });
    f.tooltip->ShowTooltip();
    WidgetPosCalculator::SetSearchObserver({});
    QVERIFY(!f.tooltip || !f.tooltip->IsVisible());
    QVERIFY(!TooltipManager::GetInstance().IsTooltipShown("test"));
  }

  void unusedObjectsMakeNothing() {
    TooltipFixture f;
    const auto before = qApp->allWidgets().size();
    auto tooltip = std::make_unique<TooltipObject>("test");
    tooltip->SetTooltipType(RichTooltip);
    tooltip->SetTooltipText("text");
    tooltip->AttachTo(f.window);
    QCOMPARE(qApp->allWidgets().size(), before);
    QVERIFY(tooltip->children().isEmpty());
    QVERIFY(tooltip->GetArrowedWindow()); // asked for, and never shown
    tooltip.reset();
    settle();
    QCOMPARE(qApp->allWidgets().size(), before);
  }
};

VELA_TEST_MAIN(TooltipLifetimeTest)
#include "tooltip_lifetime_test.moc"
