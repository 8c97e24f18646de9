// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace Vela::Benchmarks {

/// A figure beside its peer, both measured in one run.
struct Comparison {
  enum class Kind {
    Ratio,     ///< figure / peer
    ExtraTime, ///< figure - peer, in nanoseconds
  };

  std::string figure;
  std::string peer;
  std::optional<double> aim = std::nullopt; ///< The most the comparison shall come to, where there is an aim.
  Kind kind = Kind::Ratio;
};

/// Runs the registered benchmarks, interleaved and repeated, and prints the comparisons of their medians.
/// @return the exit status of the program.
int run(int argc, char** argv, const std::vector<Comparison>& comparisons);

} // namespace Vela::Benchmarks
