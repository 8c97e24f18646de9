#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the committed state and runs its tests in a fresh root of another Debian release, warnings as errors.
# Takes root, some 4 GB of disk and about 20 minutes; by hand, not in CI. docs/building.md notes the results.
# Usage: scripts/test_debian.sh [SUITE [FOLDER]]      default: trixie, in a new folder that is removed at the end;
#                                                      a named folder is kept, and used again the next time
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

case ${1:-} in -h | --help) sed -n '3,7s/^# \{0,1\}//p' "$0"; exit 0 ;; esac
suite=${1:-trixie}
folder=${2:-}
[ "$(id -u)" -eq 0 ] || die "this needs root: it makes a root file system and changes into it"

"$root/scripts/setup.sh" root
if [ -z "$folder" ]; then
  folder=$(mktemp -d)
  trap 'umount -q "$folder/proc" 2>/dev/null; rm -rf --one-file-system "$folder"' EXIT
else
  mkdir -p "$folder"
  trap 'umount -q "$folder/proc" 2>/dev/null' EXIT
fi

# The archive that this system uses itself.
archive=$(apt-get indextargets --format '$(SITE)' 'Created-By: Packages' 'Origin: Debian' 'Label: Debian' | head -n 1)

in_root() { chroot "$folder" /usr/bin/env -i HOME=/root LC_ALL=C.UTF-8 PATH=/usr/sbin:/usr/bin:/sbin:/bin "$@"; }

make_root() {
  [ ! -e "$folder/bin/sh" ] || return 0
  debootstrap --variant=minbase --include=ca-certificates,git "$suite" "$folder" "${archive:-http://deb.debian.org/debian}"
}

copy_sources() {
  rm -rf "$folder/src"
  git clone --quiet --no-hardlinks "$root" "$folder/src"
}

step "Make a root of $suite" make_root
cp -L /etc/resolv.conf "$folder/etc/resolv.conf"
mountpoint -q "$folder/proc" || mount -t proc proc "$folder/proc"
step "Copy the sources" copy_sources
step "Set up" in_root /src/scripts/setup.sh build test
step "Build" in_root bash -c '. /src/scripts/lib.sh && configure release && build release'
step "Test" in_root bash -c 'cd /src && ctest --preset release --no-tests=error'
