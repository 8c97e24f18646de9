#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Fetches sample meshes and photographs, by package name, into the build tree and prints their paths: the scan to open
# first on the first line, the photographs last.
# Usage: scripts/samples.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

samples=$root/build/samples
packages=(libcgal-demo assimp-testmodels python3-sklearn)
archive=usr/share/doc/libcgal-dev/data.tar.gz
# Scans of 75,408 and 52,000 triangles, and smaller ones.
meshes=(bunny00.off armadillo.off mannequin-devil.off)
models=(PLY/Wuson.ply STL/Spider_ascii.stl OBJ/spider.obj glTF2/2CylinderEngine-glTF-Binary/2CylinderEngine.glb)
photos=(china.jpg flower.jpg)
photo_folder=usr/lib/python3/dist-packages/sklearn/datasets/images

fetch() {
  command -v dpkg-deb >/dev/null || die "the samples are Debian packages (${packages[*]}); name a FILE instead"
  local work=$samples/unpack options=(-q -o Acquire::Retries=3)
  # As root apt would download as a user of its own, who cannot write here.
  [ "$(id -u)" -ne 0 ] || options+=(-o APT::Sandbox::User=root)
  rm -rf "$samples"
  mkdir -p "$work"
  cd "$work"
  if ! apt-get "${options[@]}" download "${packages[@]}" >&2; then
    say "Refreshing the package lists first." >&2
    as_root apt-get "${options[@]}" update >&2
    apt-get "${options[@]}" download "${packages[@]}" >&2
  fi
  local package
  for package in *.deb; do
    dpkg-deb -x "$package" .
  done
  tar -xzf "$archive" "${meshes[@]/#/data/meshes/}"
  mkdir -p "$samples/scans"
  mv data/meshes/* "$samples/scans/"
  mv usr/share/assimp/models "$samples/models"
  mkdir -p "$samples/photos"
  mv "${photos[@]/#/$photo_folder/}" "$samples/photos/"
  cd "$root"
  rm -rf "$work"
}

[ -f "$samples/scans/${meshes[0]}" ] && [ -d "$samples/models" ] && [ -d "$samples/photos" ] || fetch
printf '%s\n' "${meshes[@]/#/$samples/scans/}" "${models[@]/#/$samples/models/}" "${photos[@]/#/$samples/photos/}"
