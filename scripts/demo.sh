#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the workbench and opens meshes and photographs in it: the named files, or a sample scan and two photographs
# that are downloaded first. Without a display it runs offscreen and writes screenshots.
# Usage: scripts/demo.sh [FILE]...
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

case ${1:-} in
  -h | --help) sed -n '3,5s/^# //p' "$0"; exit 0 ;;
esac
files=()
for file in "$@"; do
  # The scripts work in the checkout's top folder.
  files+=("$(cd "$OLDPWD" && realpath -m -- "$file")")
done

workbench=$root/build/release/bin/workbench
pictures=$root/build/demo

# screenshot <name> <dark: true or false> <scale> <file>: with settings of its own, not the user's.
screenshot() {
  local picture=$pictures/$1.png settings=$pictures/settings
  mkdir -p "$settings/vlk_ui_base"
  printf '[look]\ndark=%s\n' "$2" >"$settings/vlk_ui_base/workbench.conf"
  XDG_CONFIG_HOME=$settings QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=$3 QT_LOGGING_RULES='*.warning=false' \
    "$workbench" "$4" --screenshot "$picture"
  say "wrote $picture"
}

"$root/scripts/setup.sh" build demo
step "Configure" configure release
step "Build" build release workbench
if [ ${#files[@]} -eq 0 ]; then
  mapfile -t files < <("$root/scripts/samples.sh")
  [ ${#files[@]} -gt 0 ] || exit 1
  sampled=true
fi

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  if [ "${sampled:-false}" = true ]; then
    say "More samples: ${files[*]:1}"
    # The page of what is named last is seen first.
    files=("${files[@]: -2}" "${files[0]}")
  fi
  exec "$workbench" "${files[@]}"
fi

say "No display: running offscreen."
rm -rf "$pictures"
for file in "${files[@]}"; do
  name=$(basename "$file")
  screenshot "${name%.*}" false 1 "$file"
done
name=$(basename "${files[0]}")
screenshot "${name%.*}-dark" true 1 "${files[0]}"
screenshot "${name%.*}-2x" false 2 "${files[0]}"
