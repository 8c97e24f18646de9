#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Cross-builds the workbench for Windows, packs it with all that it needs into a ZIP, and tries the ZIP under Wine:
# unpacked into a folder with a blank and an umlaut in its name it opens meshes and writes screenshots.
# Usage: scripts/package_windows.sh [KIT]      for KIT see scripts/test_windows.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
. "$root/scripts/lib_windows.sh"

case ${1:-} in -h | --help) sed -n '3,5s/^# //p' "$0"; exit 0 ;; esac
kit=$(find_kit "${1:-}")
[ -n "$kit" ] || die "no kit for Windows${1:+ in $1}"
build=$windows_cache/build
trial=$windows_cache/trial
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM

pack() {
  rm -f "$build"/vlk_workbench-*.zip
  (cd "$build" && cpack -G ZIP >/dev/null)
  package=$(echo "$build"/vlk_workbench-*.zip)
}

# Not with the kit's runner, which would lend the program the libraries that the ZIP lacks.
screenshots() {
  local folder="$trial/Werkbank für Netze" samples file picture
  rm -rf "$trial"
  mkdir -p "$folder/Proben ä"
  (cd "$folder" && cmake -E tar xf "$package")
  mapfile -t samples < <("$root/scripts/samples.sh" | grep -v '\.jpg$')
  "$kit/bin/wine-run" "$kit/bin/wine-prime.exe" || true # makes Wine's files
  for file in "${samples[@]}"; do
    cp "$file" "$folder/Proben ä/"
    picture=$trial/$(basename "$file").png
    wine "$folder"/vlk_workbench-*/workbench.exe "Z:$folder/Proben ä/$(basename "$file")" --screenshot "Z:$picture" \
      2>/dev/null || die "the workbench does not open $file"
    [ -s "$picture" ] || die "no screenshot of $file"
    say "wrote $picture"
  done
}

step "Set up" "$root/scripts/setup.sh" build windows windows-package
step "Unpack the kit" unpack_kit "$kit"
assimp=$("$root/scripts/build_assimp_windows.sh" "$kit")
step "Configure" configure_windows "$build" -D VLK_BUILD_BENCHMARKS=OFF -D VLK_BUILD_EXAMPLES=ON \
  -D assimp_DIR="$(dirname "$assimp"/lib/cmake/assimp-*/assimpConfig.cmake)" \
  -D VLK_LICENSE_FOLDERS="$kit/licenses/;$assimp/licenses/"
step "Build" cmake --build "$build" --target workbench workbench_mesh_reader
step "Pack" pack
use_wine
step "Try it" screenshots
say "The package is $package"
