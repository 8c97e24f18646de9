#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the Debian packages that are lacking for the named purposes.
# Usage: scripts/setup.sh [build|web|test|windows|windows-package|lint|demo|docs|root]...      (default: build test)
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

release=$(. /etc/os-release 2>/dev/null && printf '%s' "${VERSION_ID:-}") || true

packages_for() {
  case $1 in
    build)
      echo g++ cmake ninja-build ccache
      echo qt6-base-dev qt6-svg-dev qt6-scxml-dev libtbb-dev libbenchmark-dev
      # The translations: lrelease and lupdate, and the texts of Qt itself.
      echo qt6-l10n-tools qt6-translations-l10n
      # assimp's package names zlib as a library to link without depending on it.
      echo libassimp-dev zlib1g-dev
      # What the programs need at run time besides the libraries: SVG icons, fonts with known metrics.
      echo libqt6svg6 fontconfig fonts-dejavu-core fonts-liberation
      # From Debian 13 on the plugins of Qt Svg, without which icons are missing, are a package of their own.
      if [ "${release%%.*}" != 12 ]; then echo qt6-svg-plugins; fi
      ;;
    # Optional: without it information panels use a text browser.
    web) echo qt6-webengine-dev ;;
    # Packing and unpacking Debian packages, and a program that finds the library by pkg-config.
    test)
      echo xvfb xauth clang-format dpkg-dev file pkgconf
      # A desktop to drive a program on: window manager, keys and mouse, and what screen readers ask.
      echo openbox xdotool dbus at-spi2-core libatspi2.0-dev
      ;;
    # What cross-builds for Windows and runs its programs.
    windows) echo g++-mingw-w64-x86-64-posix wine wine64 xz-utils ;;
    windows-package) echo libz-mingw-w64-dev dpkg-dev patch ;;
    lint) echo clang clang-format clang-tidy clazy ;;
    demo)
      # A Wayland session without an X server needs Qt's platform plugin for it.
      [ -n "${WAYLAND_DISPLAY:-}" ] && [ -z "${DISPLAY:-}" ] && echo qt6-wayland
      true
      ;;
    docs) echo doxygen ;;
    # A root file system of another release.
    root) echo debootstrap ;;
    *) return 1 ;;
  esac
}

wanted=()
[ $# -gt 0 ] || set -- build test
for purpose in "$@"; do
  list=$(packages_for "$purpose") || die "unknown purpose: $purpose (build, web, test, windows, windows-package, lint, demo, docs or root)"
  read -r -d '' -a names <<<"$list" || true
  wanted+=("${names[@]}")
done

if ! command -v dpkg-query >/dev/null; then
  say "This system has no Debian packages; going on with what is installed. Needed are the equivalents of:"
  say "  ${wanted[*]}"
  exit 0
fi

installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null |
  sed -n 's/^installed //p') || true
lacking=()
for package in "${wanted[@]}"; do
  grep -qxF "$package" <<<"$installed" || lacking+=("$package")
done
[ ${#lacking[@]} -gt 0 ] || exit 0

say "Installing: ${lacking[*]}"
apt() {
  as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get -q -o Dpkg::Use-Pty=0 -o Acquire::Retries=3 -o DPkg::Lock::Timeout=300 "$@"
}
if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
  die "neither root nor sudo: ask for these packages to be installed: ${lacking[*]}"
fi
for attempt in 1 2 3; do
  if apt update && apt install -y --no-install-recommends "${lacking[@]}"; then
    exit 0
  fi
  [ "$attempt" = 3 ] || { say "That did not work; once more in 5 s."; sleep 5; }
done
die "could not install: ${lacking[*]}"
