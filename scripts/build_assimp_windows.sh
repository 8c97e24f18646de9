#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Cross-builds Debian's assimp for Windows, with no more than the importers of the formats that the workbench opens, as
# a static library; once, into the cache. Prints the folder to find it in. Needs the kit that is named.
# Usage: scripts/build_assimp_windows.sh KIT
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
. "$root/scripts/lib_windows.sh"

importers=(OBJ PLY STL OFF GLTF)
# Of these only headers are taken: the readers of packed scenes are compiled, but nothing links them.
header_packages=(libminizip-dev libutfcpp-dev libstb-dev)

kit=$(find_kit "${1:-}")
[ -n "$kit" ] || die "no kit for Windows"
unpack_kit "$kit"
prefix=$windows_cache/assimp
work=$windows_cache/assimp-build

# apt <command> [argument...]: with Debian's sources, which a system need not have among its own, and lists apart.
apt() {
  local site keys=/usr/share/keyrings/debian-archive-keyring.gpg suite
  suite=$(. /etc/os-release && printf '%s' "$VERSION_CODENAME")
  site=$(apt-get indextargets --format '$(SITE)' 'Created-By: Packages' 'Origin: Debian' 'Label: Debian' | head -n 1)
  mkdir -p "$work/lists/partial"
  say "deb-src [signed-by=$keys] ${site:-http://deb.debian.org/debian} $suite main" >"$work/sources.list"
  apt-get -q -o Acquire::Retries=3 -o APT::Sandbox::User="$(id -un)" -o Dir::Etc::SourceList="$work/sources.list" \
    -o Dir::Etc::SourceParts=/dev/null -o Dir::State::Lists="$work/lists" -o Dir::Cache::pkgcache= \
    -o Dir::Cache::srcpkgcache= "$@"
}

fetch() {
  rm -rf "$work"
  mkdir -p "$work/headers"
  cd "$work"
  apt update
  apt source --download-only assimp
  dpkg-source --no-check -x assimp_*.dsc source
  # Compressed meshes would need one more library.
  patch -d source -R -p1 <source/debian/patches/use-system-libdraco.patch
  apt-get -q -o APT::Sandbox::User="$(id -un)" download "${header_packages[@]}"
  local package
  for package in *.deb; do
    dpkg-deb -x "$package" headers
  done
  cd "$root"
}

compile() {
  local headers=$work/headers/usr/include chosen=("${importers[@]/#/-DASSIMP_BUILD_}")
  chosen=("${chosen[@]/%/_IMPORTER=ON}")
  cmake -S "$work/source" -B "$work/build" -G Ninja --log-level=WARNING -Wno-dev \
    -D CMAKE_BUILD_TYPE=Release -D CMAKE_TOOLCHAIN_FILE="$kit/toolchain.cmake" -D CMAKE_INSTALL_PREFIX="$prefix.new" \
    -D CMAKE_C_COMPILER_LAUNCHER=ccache -D CMAKE_CXX_COMPILER_LAUNCHER=ccache -D CMAKE_CXX_FLAGS="-isystem $headers" \
    -D BUILD_SHARED_LIBS=OFF -D ASSIMP_NO_EXPORT=ON -D ASSIMP_BUILD_ALL_IMPORTERS_BY_DEFAULT=OFF \
    "${chosen[@]}" \
    -D ASSIMP_BUILD_ASSIMP_TOOLS=OFF -D ASSIMP_BUILD_TESTS=OFF -D ASSIMP_INSTALL_PDB=OFF -D ASSIMP_WARNINGS_AS_ERRORS=OFF \
    -D ASSIMP_BUILD_ZLIB=OFF -D ZLIB_LIBRARY=/usr/x86_64-w64-mingw32/lib/libz.a \
    -D ASSIMP_BUILD_MINIZIP=ON -D UNZIP_FOUND=ON -D UNZIP_INCLUDE_DIRS="$headers/minizip"
  cmake --build "$work/build"
  rm -rf "$prefix.new"
  cmake --install "$work/build" >/dev/null
  install -D -m 644 "$work/source/LICENSE" "$prefix.new/licenses/assimp.txt"
  install -D -m 644 /usr/share/doc/libz-mingw-w64-dev/copyright "$prefix.new/licenses/zlib.txt"
  rm -rf "$prefix"
  mv "$prefix.new" "$prefix"
}

if [ ! -d "$prefix" ]; then
  "$root/scripts/setup.sh" windows-package >&2
  [ -d "$work/source/debian" ] && [ -d "$work/headers/usr" ] || step "Fetch assimp" fetch >&2
  step "Build assimp" compile >&2
fi
say "$prefix"
