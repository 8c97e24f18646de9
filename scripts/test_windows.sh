#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Cross-builds the libraries and their tests with MinGW-w64 and runs the tests as Windows programs under Wine: on the
# offscreen platform, then on the Windows platform, where the cases named in tests/windows/BLACKLIST may fail.
# Usage: scripts/test_windows.sh [--if-available] [KIT]
#   KIT             Qt for Windows (docs/windows.md): an archive or a folder; default: $VLK_WINDOWS_KIT
#   --if-available  without a kit says so and ends well
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
. "$root/scripts/lib_windows.sh"

if_available=false
while [ $# -gt 0 ]; do
  case $1 in
    --if-available) if_available=true ;;
    -h | --help) sed -n '3,7s/^# //p' "$0"; exit 0 ;;
    -*) die "unknown argument: $1 (see --help)" ;;
    *) break ;;
  esac
  shift
done

unset QT_QPA_PLATFORM DISPLAY WAYLAND_DISPLAY
build=$windows_cache/build

build_tests() {
  local names
  # A test program is named like its target, but for those that run a second time.
  names=$(ctest --test-dir "$build" -N -R '_test$' | sed -n 's/^ *Test *#[0-9]*: //p' | grep -v '_2x_test$')
  # shellcheck disable=SC2086
  cmake --build "$build" --target $names
}

# run_tests <platform> [ctest argument...]: fuzz tests take fewer steps, as a window costs more under Wine. On a busy
# machine a program under Wine stops answering or loses its activation now and then, so what fails runs once more.
run_tests() {
  local platform=$1 status=0
  shift
  QT_QPA_PLATFORM=$platform VELA_FUZZ_STEPS=${VELA_FUZZ_STEPS:-2500} \
    ctest --test-dir "$build" -R '_test(_2x)?$' --output-on-failure --no-tests=error --timeout 200 \
      --repeat until-pass:2 "$@" || status=$?
  say "On the $platform platform: $(count_cases)"
  return $status
}

# From the line with which each test class ends.
count_cases() {
  sed -n 's/\r$//; s/^Totals: //p' "$build/Testing/Temporary/LastTest.log" | awk '
    { passed += $1; failed += $3; skipped += $5; left += $7 }
    END { print passed " cases passed, " failed " failed, " skipped " skipped, " left " left out" }'
}

kit=$(find_kit "${1:-}")
if [ -z "$kit" ]; then
  message="no kit for Windows${1:+ in $1}: the Windows build is not tested"
  $if_available || die "$message"
  say "$message"
  exit 0
fi

step "Set up" "$root/scripts/setup.sh" build windows
step "Unpack the kit" unpack_kit "$kit"
step "Configure" configure_windows "$build" -D VLK_BUILD_BENCHMARKS=OFF -D VLK_BUILD_EXAMPLES=OFF
step "Build" build_tests
use_wine
step "Test on the offscreen platform" run_tests offscreen -j 2
# One program at a time: they share a desktop, on which one window is active. Tooltips need a pointer that rests on a
# window, and there is no window under it without a screen.
step "Test on the Windows platform" run_tests windows -E '^tooltips_test$'
say "== All of it: $SECONDS s"
