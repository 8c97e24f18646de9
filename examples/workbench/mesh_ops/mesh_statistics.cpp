// SPDX-License-Identifier: MIT
#include "mesh_statistics.h"

#include <workbench/vector3.h>

#include <algorithm>
#include <numeric>

namespace Workbench {
namespace {

constexpr std::size_t Steps = 24;
constexpr double ShownPart = 0.99; // of the edges, without the longest

std::vector<double> lengthsOfEdges(const Mesh& mesh) {
  std::vector<std::uint64_t> edges;
  edges.reserve(mesh.triangles().size() * 3);
  for (const Mesh::Triangle& triangle : mesh.triangles()) {
    for (std::size_t i = 0; i < 3; ++i) {
      const std::uint64_t a = triangle[i];
      const std::uint64_t b = triangle[(i + 1) % 3];
      if (a != b)
        edges.push_back(std::min(a, b) << 32U | std::max(a, b));
    }
  }
  std::sort(edges.begin(), edges.end());
  edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
  std::vector<double> lengths;
  lengths.reserve(edges.size());
  for (const std::uint64_t edge : edges)
    lengths.push_back(length(Vector3(mesh.positions()[edge & 0xffffffffU]) -
                             Vector3(mesh.positions()[std::size_t(edge >> 32U)])));
  return lengths;
}

EdgeLengths distribution(std::vector<double> lengths) {
  EdgeLengths result;
  if (lengths.empty())
    return result;
  const auto [shortest, longest] = std::minmax_element(lengths.begin(), lengths.end());
  result.shortest = *shortest;
  result.longest = *longest;
  result.mean = std::accumulate(lengths.begin(), lengths.end(), 0.0) / double(lengths.size());
  const auto last = lengths.begin() + std::ptrdiff_t(double(lengths.size() - 1) * ShownPart);
  std::nth_element(lengths.begin(), last, lengths.end());
  result.end = *last;
  result.counts.resize(Steps);
  for (const double each : lengths) {
    const double step = result.end > 0 ? each / result.end * double(Steps) : 0;
    ++result.counts[std::size_t(std::min(step, double(Steps - 1)))];
  }
  return result;
}

} // namespace

MeshStatistics meshStatistics(const Mesh& mesh, const Vela::UiBase::RunProgress& progress) {
  MeshStatistics result;
  progress.report(0);
  result.vertices = mesh.positions().size();
  result.triangles = mesh.triangles().size();
  result.bounds = mesh.bounds();
  result.area = mesh.area();
  progress.report(0.2);
  result.volume = mesh.volume();
  progress.report(0.6);
  std::vector<double> lengths = lengthsOfEdges(mesh);
  result.edges = lengths.size();
  result.edgeLengths = distribution(std::move(lengths));
  progress.report(1);
  return result;
}

} // namespace Workbench
