// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <ui_base/popups/arrowed_window.h>

#include <QApplication>
#include <QGraphicsDropShadowEffect>
#include <QLabel>

#include <benchmark/benchmark.h>

using namespace Vela::UiBase;

namespace {

enum class Shadow { None, Cached, Plain };

/// A popup over a view, as it is shown by the screen.
class Scene {
public:
  explicit Scene(Shadow shadow) : m_popup(new ArrowedWindow(&m_view)) {
    m_view.resize(800, 600);
    m_popup->AttachWidget(new QLabel(QStringLiteral("50 000 triangles, 25 000 vertices\n").repeated(8)));
    m_popup->SetContentMargin(8);
    m_popup->SetArrow(ArrowTop, 10, false, 0, 90, true, 0);
    if (shadow == Shadow::Cached)
      m_popup->EnableShadow(true);
    if (shadow == Shadow::Plain) {
      auto* const effect = new QGraphicsDropShadowEffect;
      effect->setBlurRadius(m_popup->GetShadow()->blurRadius());
      effect->setOffset(m_popup->GetShadow()->offset());
      effect->setColor(m_popup->GetShadow()->color());
      m_popup->setGraphicsEffect(effect);
    }
    m_popup->move(100, 100);
    m_view.show();
    QCoreApplication::processEvents();
  }

  void moveFrame() {
    m_step = (m_step + 1) % 100;
    m_popup->move(100 + m_step, 100);
    QCoreApplication::processEvents();
  }
  void repaintFrame() {
    m_popup->update();
    QCoreApplication::processEvents();
  }

private:
  QWidget m_view;
  ArrowedWindow* m_popup;
  int m_step = 0;
};

template <void (Scene::*frame)()>
void measure(benchmark::State& state, Shadow shadow) {
  Scene scene(shadow);
  for (auto _ : state)
    (scene.*frame)();
  state.SetItemsProcessed(state.iterations());
}

void Move_WithoutShadow(benchmark::State& state) { measure<&Scene::moveFrame>(state, Shadow::None); }
BENCHMARK(Move_WithoutShadow);

void Move_WithShadow(benchmark::State& state) { measure<&Scene::moveFrame>(state, Shadow::Cached); }
BENCHMARK(Move_WithShadow);

void Move_WithPlainEffect(benchmark::State& state) { measure<&Scene::moveFrame>(state, Shadow::Plain); }
BENCHMARK(Move_WithPlainEffect);

void Repaint_WithoutShadow(benchmark::State& state) { measure<&Scene::repaintFrame>(state, Shadow::None); }
BENCHMARK(Repaint_WithoutShadow);

void Repaint_WithShadow(benchmark::State& state) { measure<&Scene::repaintFrame>(state, Shadow::Cached); }
BENCHMARK(Repaint_WithShadow);

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return Vela::Benchmarks::run(argc, argv,
                               {{"Move_WithShadow", "Move_WithoutShadow", 1.3},
                                {"Repaint_WithShadow", "Repaint_WithoutShadow", 1.3},
                                {"Move_WithPlainEffect", "Move_WithoutShadow"}});
}
