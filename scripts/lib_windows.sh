# SPDX-License-Identifier: MIT
# Shared by the scripts that cross-build for Windows; sourced after lib.sh.
#
# A kit is Qt for 64-bit Windows with oneTBB, a CMake toolchain file for MinGW-w64 and a runner for Wine: a folder with
# toolchain.cmake, or qt-win-kit.tar.xz with such a folder in it.

# What is unpacked, built and installed for Windows is kept here, outside of the tree.
windows_cache=${VLK_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/vlk_ui_base/windows}

# The kit that is named, or of VLK_WINDOWS_KIT: an archive or a folder. Nothing where there is none.
find_kit() (
  named=${1:-${VLK_WINDOWS_KIT:-}}
  [ -n "$named" ] || return 0
  # The scripts work in the checkout's top folder.
  cd "$OLDPWD"
  if [ -f "$named" ] || [ -f "$named/toolchain.cmake" ]; then
    realpath -- "$named"
  elif [ -f "$named/qt-win-kit.tar.xz" ]; then
    realpath -- "$named/qt-win-kit.tar.xz"
  fi
)

# unpack_kit <kit>: sets kit to the folder with the toolchain file. An archive is unpacked once for its contents.
unpack_kit() {
  kit=$1
  [ -d "$kit" ] && return
  local digest folder
  digest=$(sha256sum "$kit" | cut -c 1-12)
  folder=$windows_cache/kit-$digest
  if [ ! -d "$folder" ]; then
    rm -rf "$folder.new"
    mkdir -p "$folder.new"
    tar -xf "$kit" -C "$folder.new" --strip-components=1
    mv "$folder.new" "$folder"
  fi
  kit=$folder
}

# configure_windows <folder> [cmake argument...]: a release build in a folder of the cache, of this checkout.
configure_windows() {
  local build=$1 fresh=()
  shift
  if ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$build/CMakeCache.txt" 2>/dev/null ||
    ! grep -qF "$kit/toolchain.cmake" "$build/CMakeCache.txt"; then
    fresh=(--fresh)
  fi
  VLK_QT_KIT=$kit cmake --preset mingw -B "$build" "${fresh[@]}" --log-level=WARNING "$@"
}

# The servers of Wine outlive the programs; their files are kept with the rest.
use_wine() {
  export WINEPREFIX=$windows_cache/wine WINEDEBUG=${WINEDEBUG:--all}
  mkdir -p "$windows_cache"
  trap 'wineserver -k || true' EXIT
}
