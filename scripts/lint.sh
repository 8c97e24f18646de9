#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Static analysis with clang-tidy (.clang-tidy) and clazy; what they report is an error.
# Usage: scripts/lint.sh [--clazy|--tidy] [--changed COMMITS MOST | folder|file...]
# default: both, over the whole project; --changed: the files changed in the last commits, the latest first, at most
# so many
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# Level 0 and 1 of clazy. Left out:
#   fully-qualified-moc-types  where two sides meet by the text of a signature, types are unqualified on purpose
#   connect-not-normalized     the formatter puts a blank where the check wants none
#   strict-iterators           erase() of Qt 6 takes constant iterators
#   qproperty-without-notify   commands tell of their state through CommandStateProtocol
clazy_checks=level0,level1,no-fully-qualified-moc-types,no-connect-not-normalized,no-strict-iterators,no-qproperty-without-notify
# Tests and benchmarks register themselves by global objects, may take their time, and outlive their lambdas.
left_to_tests=no-non-pod-global-static,no-range-loop-detach,no-range-loop-reference,no-detaching-temporary
left_to_tests+=,no-use-static-qregularexpression,no-lambda-in-connect,no-connect-3arg-lambda

tidy=true clazy=true
changed=0 most=0
while [ $# -gt 0 ]; do
  case $1 in
    --clazy) tidy=false ;;
    --tidy) clazy=false ;;
    --changed) changed=$2 most=$3; shift 2 ;;
    -h | --help) sed -n '3,6s/^# //p' "$0"; exit 0 ;;
    *) break ;;
  esac
  shift
done

# The latest first, each once, those that are still there.
changed_sources() {
  git log -"$changed" --format= --name-only --diff-filter=AMR | awk '/\.cpp$/ && !seen[$0]++' | while read -r file; do
    [ ! -e "$file" ] || say "$file"
  done
}

# The analysers read what moc writes. Its targets would build every library that a program links first.
generate_sources() {
  find build/clang -name AutogenInfo.json -print0 |
    xargs -0 -P "$(nproc)" -I{} cmake -E cmake_autogen {} Debug >/dev/null
}

# batches_of <name>: joins the sources named on standard input, so that Qt's headers are gone through less often, and
# prints the names of what it wrote. Tests stay apart: what is local to them bears the same names.
batches=build/clang/batches
batches_of() {
  local most=8
  [ "$1" != tests ] || most=1
  "$root/scripts/lint_batches.py" join build/clang $batches/"$1" $most
}
name_places() { "$root/scripts/lint_batches.py" name; }

library_list() { grep -vE '^(tests|benchmarks)/' "$list" || true; }
tests_list() { grep -E '^(tests|benchmarks)/' "$list" || true; }

# The analyser does not see that QVERIFY() leaves the function.
unseen_in_tests=-clang-analyzer-core.CallAndMessage,-clang-analyzer-core.NonNullParamChecker

# tidy_on <name> <more checks> and clazy_on <name> <checks>: on the sources named on standard input.
tidy_on() {
  batches_of "$1" | xargs -r -P "$(nproc)" -n 1 clang-tidy -p "$batches/$1" --config-file=.clang-tidy --checks="$2" \
    --quiet 2>&1 |
    sed '/ warnings\? generated\.$/d' | name_places
}

# Its exit status does not tell whether it found something, and what it finds in a header it tells once for each file.
clazy_on() {
  local folders='(platform|ui_base|ui_toolkit|examples|tests|benchmarks)' found
  found=$(batches_of "$1" | xargs -r -P "$(nproc)" -n 1 clazy-standalone -p "$batches/$1" --checks="$2" \
    --header-filter="^$root/$folders/.*" 2>&1 | grep -E 'warning:|error:' | name_places | sort -u) || true
  [ -z "$found" ] || { say "$found"; return 1; }
}

run_tidy() {
  local status=0
  library_list | tidy_on library '' || status=1
  tests_list | tidy_on tests $unseen_in_tests || status=1
  return $status
}

run_clazy() {
  local status=0
  library_list | clazy_on library "$clazy_checks" || status=1
  tests_list | clazy_on tests "$clazy_checks,$left_to_tests" || status=1
  return $status
}

"$root/scripts/setup.sh" build lint
# Configuring writes those of the targets that are still there.
[ ! -d build/clang ] || find build/clang -name AutogenInfo.json -delete
step "Configure clang" configure clang
step "Generate sources" generate_sources

list=$(mktemp)
trap 'rm -f "$list"' EXIT
# The consumer of the package is a project of its own, and so are programs for Windows.
{ if [ "$changed" -gt 0 ]; then changed_sources; else sources "$@" | grep '\.cpp$'; fi; } |
  grep -vE '^tests/(install/consumer|windows)/|_win\.cpp$' >"$list" || true
if [ "$changed" -gt 0 ]; then
  total=$(wc -l <"$list")
  if [ "$total" -gt "$most" ]; then
    sed -i "$((most + 1)),\$d" "$list"
    say "Only the $most files changed last, of $total that changed in $changed commits; scripts/lint.sh checks all."
  fi
  [ -s "$list" ] || exit 0
fi
if $tidy; then step "clang-tidy" run_tidy; fi
if $clazy; then step "clazy" run_clazy; fi
