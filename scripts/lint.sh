#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Static analysis with clang-tidy (.clang-tidy) and clazy; what they report is an error.
# Usage: scripts/lint.sh [--clazy|--tidy] [folder|file]...      default: both, over the whole project
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# Level 0 and 1 of clazy. Left out:
#   fully-qualified-moc-types   where two sides meet by the text of a signature, types are unqualified on purpose
clazy_checks=level0,level1,no-fully-qualified-moc-types

tidy=true clazy=true
case ${1:-} in
  --clazy) tidy=false; shift ;;
  --tidy) clazy=false; shift ;;
  -h | --help) sed -n '3,4s/^# //p' "$0"; exit 0 ;;
esac

run_tidy() { xargs -P "$(nproc)" -n 1 clang-tidy -p build/clang --quiet <"$list"; }

run_clazy() {
  local folders='(platform|ui_base|ui_toolkit|examples|tests|benchmarks)'
  # Its exit status does not tell whether it found something, and a header is reported once for each file.
  local found
  found=$(xargs -P "$(nproc)" -n 4 clazy-standalone -p build/clang --checks="$clazy_checks" \
    --header-filter="^$root/$folders/.*" <"$list" 2>&1 | grep -E 'warning:|error:|Error' | sort -u) || true
  [ -z "$found" ] || { say "$found"; return 1; }
}

"$root/scripts/setup.sh" build lint
step "Configure clang" configure clang
# The analysers read what moc and rcc write.
step "Generate sources" build clang autogen

list=$(mktemp)
trap 'rm -f "$list"' EXIT
sources "$@" | grep '\.cpp$' >"$list"
if $tidy; then step "clang-tidy" run_tidy; fi
if $clazy; then step "clazy" run_clazy; fi
