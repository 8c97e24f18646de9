#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Everything that has to pass before a change goes in: formatting, all tests of a release build (warnings are errors)
# offscreen and the end-to-end tests on an X server, all tests under the address and undefined-behaviour sanitizers,
# the tests labelled "threads" under the thread sanitizer, and static analysis of what changed last.
# Usage: scripts/test.sh [--quick]      --quick stops after the release build and its tests
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

quick=false
for argument in "$@"; do
  case $argument in
    --quick) quick=true ;;
    -h | --help) sed -n '3,7s/^# //p' "$0"; exit 0 ;;
    *) die "unknown argument: $argument (see --help)" ;;
  esac
done

# The tests choose the offscreen platform themselves where none is named.
unset QT_QPA_PLATFORM DISPLAY WAYLAND_DISPLAY

test_on_display() {
  QT_QPA_PLATFORM=xcb xvfb-run -a -s '-screen 0 1600x1200x24' ctest --preset release -R '_e2e_test$' --no-tests=error
}

# Address space randomisation takes room that the thread sanitizer wants for itself.
without_randomisation() {
  if setarch "$(uname -m)" -R true 2>/dev/null; then
    setarch "$(uname -m)" -R "$@"
  else
    "$@"
  fi
}

build_thread_tests() {
  local names
  names=$(ctest --preset tsan -N | sed -n 's/^ *Test *#[0-9]*: //p')
  [ -n "$names" ] || die "no test is labelled \"threads\""
  # A test is named like its target.
  # shellcheck disable=SC2086
  build tsan $names
}

step "Set up" "$root/scripts/setup.sh" build test docs
step "Formatting" "$root/scripts/format.sh" --check

step "Configure release" configure release
step "Build release" build release
step "Test release" ctest --preset release --no-tests=error
step "Test release on an X server" test_on_display
$quick && exit 0

step "Configure asan" configure asan
step "Build asan" build asan
step "Test asan" ctest --preset asan --no-tests=error

step "Configure tsan" configure tsan
step "Build tsan" build_thread_tests
step "Test tsan" without_randomisation ctest --preset tsan --no-tests=error

step "Analysis" "$root/scripts/lint.sh" --changed 20 24

say "== All of it: $SECONDS s"
