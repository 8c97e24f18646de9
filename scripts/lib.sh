# SPDX-License-Identifier: MIT
# Shared by the scripts in this folder: source it, do not run it.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

# A fresh clone in another folder finds what an earlier one compiled: paths below the checkout are hashed relative to
# it.
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1

# Other versions of clang-format lay out some lines differently.
clang_format_version=14

say() { printf '%s\n' "$*"; }
die() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; exit 1; }

# step <title> <command...>: runs the command below a heading and says how long it took.
step() {
  local title=$1 started=$SECONDS
  shift
  say "== $title"
  "$@"
  say "== $title: $((SECONDS - started)) s"
}

# as_root <command...>: runs it as root, through sudo where that is needed and there is one.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif ! command -v sudo >/dev/null; then
    die "this needs root or sudo: $*"
  elif [ -t 0 ]; then
    sudo "$@"
  else
    # Nobody there to type a password.
    sudo -n "$@"
  fi
}

# The project's own C++ files, or those below the given folders.
sources() {
  local folders=("$@")
  [ $# -gt 0 ] || folders=(platform ui_base ui_toolkit examples tests benchmarks)
  local present=() folder
  for folder in "${folders[@]}"; do
    [ -e "$folder" ] && present+=("$folder")
  done
  [ ${#present[@]} -gt 0 ] || return 0
  find "${present[@]}" -name '*.cpp' -o -name '*.h' | sort
}

# configure <preset> and build <preset> [target...]
configure() { cmake --preset "$1" --log-level=WARNING; }
build() {
  local preset=$1
  shift
  cmake --build --preset "$preset" ${1:+--target "$@"}
}
