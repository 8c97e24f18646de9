#!/usr/bin/env bash
# Renders the PNG and GIF files of this folder from svg/. Run it after a drawing has changed and commit the
# results: a build uses the rendered files. Needs rsvg-convert (librsvg2-bin) and convert (imagemagick).
set -euo pipefail
cd "$(dirname "$0")"

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

render_png() { # name
  rsvg-convert --zoom 1 "svg/$1.svg" --output "$1.png"
  rsvg-convert --zoom 2 "svg/$1.svg" --output "$1@2x.png"
}

# One turn in eight steps: the drawing is turned by an eighth for each frame.
render_loader() { # output zoom
  local frame frames=()
  for frame in 0 1 2 3 4 5 6 7; do
    sed "s/rotate(0 /rotate($((frame * 45)) /" svg/sys_loader-16x16.svg |
      rsvg-convert --zoom "$2" --output "$scratch/frame$frame.png"
    frames+=("$scratch/frame$frame.png")
  done
  convert -delay 10 -loop 0 -dispose Background "${frames[@]}" "$1"
}

for name in lock_normal sys_hseparator sys_vseparator sys_sample; do
  render_png "$name"
done
render_loader sys_loader-16x16.gif 1
render_loader sys_loader-16x16@2x.gif 2
