// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <workbench/camera.h>
#include <workbench/mesh_loader.h>
#include <workbench/mesh_ops/decimate.h>
#include <workbench/mesh_ops/smooth.h>
#include <workbench/renderer.h>

#include <QFile>
#include <QGuiApplication>
#include <QPalette>

#include <benchmark/benchmark.h>

#include <cstdio>

using namespace Workbench;

namespace {

QString meshFile; // the scan to measure with

void Load_Mesh(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(loadMesh(meshFile));
}
BENCHMARK(Load_Mesh)->Unit(benchmark::kMillisecond)->UseRealTime();

void Load_Bytes(benchmark::State& state) {
  for (auto _ : state) {
    QFile file(meshFile);
    if (file.open(QIODevice::ReadOnly))
      benchmark::DoNotOptimize(file.readAll());
  }
}
BENCHMARK(Load_Bytes)->Unit(benchmark::kMillisecond)->UseRealTime();

// The argument is the oversampling: 1 while something moves, 2 at rest.
void Frame_Mesh(benchmark::State& state) {
  const Mesh mesh = loadMesh(meshFile);
  const QSize size(1280, 800);
  Camera camera;
  camera.fit(mesh, size);
  const RenderStyle style = RenderStyle::forPalette(QPalette());
  const FrameRequest request{mesh, camera, size, style, static_cast<int>(state.range(0)), {}};
  Renderer renderer;
  Frame frame;
  for (auto _ : state)
    renderer.draw(frame, request);
}
BENCHMARK(Frame_Mesh)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();

// What is under the mouse while the frame of that is still being drawn.
void Pick_Mesh(benchmark::State& state) {
  FrameRequest request{loadMesh(meshFile), {}, QSize(1280, 800), RenderStyle::forPalette(QPalette()), 1, {}};
  request.camera.fit(request.mesh, request.size);
  const QPoint middle(640, 400);
  for (auto _ : state)
    benchmark::DoNotOptimize(Renderer::find(request, QRect(middle, QSize(1, 1))).pick(middle));
}
BENCHMARK(Pick_Mesh)->Unit(benchmark::kMillisecond)->UseRealTime();

void Frame_Background(benchmark::State& state) {
  QImage image(1280, 800, QImage::Format_RGB32);
  for (auto _ : state)
    image.fill(Qt::white);
}
BENCHMARK(Frame_Background)->Unit(benchmark::kMillisecond)->UseRealTime();

void Smooth_Mesh(benchmark::State& state) {
  const Mesh mesh = loadMesh(meshFile);
  for (auto _ : state)
    benchmark::DoNotOptimize(smoothed(mesh));
}
BENCHMARK(Smooth_Mesh)->Unit(benchmark::kMillisecond)->UseRealTime();

// To a fifth of the triangles.
void Decimate_Mesh(benchmark::State& state) {
  const Mesh mesh = loadMesh(meshFile);
  for (auto _ : state)
    benchmark::DoNotOptimize(decimated(mesh, mesh.triangles().size() / 5));
}
BENCHMARK(Decimate_Mesh)->Unit(benchmark::kMillisecond)->UseRealTime();

// What any operation has to do: new vertices and triangles, and the normals of them.
void Copy_Mesh(benchmark::State& state) {
  const Mesh mesh = loadMesh(meshFile);
  for (auto _ : state)
    benchmark::DoNotOptimize(Mesh(mesh.positions(), mesh.triangles()));
}
BENCHMARK(Copy_Mesh)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

/// Usage: mesh_benchmark FILE [option of Google Benchmark]...
int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("Usage: mesh_benchmark FILE\n", stderr);
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  meshFile = QString::fromLocal8Bit(argv[1]);
  argv[1] = argv[0];
  return Vela::Benchmarks::run(argc - 1, argv + 1,
                               {{"Load_Mesh/real_time", "Load_Bytes/real_time"},
                                {"Frame_Mesh/1/real_time", "Frame_Background/real_time"},
                                {"Frame_Mesh/2/real_time", "Frame_Background/real_time"},
                                {"Pick_Mesh/real_time", "Frame_Mesh/1/real_time"},
                                {"Smooth_Mesh/real_time", "Copy_Mesh/real_time"},
                                {"Decimate_Mesh/real_time", "Copy_Mesh/real_time"}});
}
