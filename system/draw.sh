#!/bin/sh
# Draws a picture for the programs: SVG to a bitmap of 192 dots per inch, which is sharp on a screen of double scale.
# Its colours are those of drawing.css, 64 steps each from black, red and blue to white. So a grey stays a grey, and the
# window can turn the drawing for its own colours.
# Usage: draw.sh SOURCE TARGET
set -eu

source=$1
target=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

awk 'function ramp(r, g, b,  i, s) {
       for (i = 0; i < 64; ++i) {
         s = i / 63
         printf "%d %d %d\n", r + (255 - r) * s + 0.5, g + (255 - g) * s + 0.5, b + (255 - b) * s + 0.5
       }
     }
     BEGIN { print "P3 64 3 255"; ramp(0, 0, 0); ramp(192, 0, 0); ramp(10, 80, 180) }' >"$scratch/colours"
rsvg-convert --zoom 2 "$source" >"$scratch/png"
pngtopnm "$scratch/png" >"$scratch/pnm"
pnmremap -quiet -mapfile="$scratch/colours" "$scratch/pnm" >"$scratch/few"
ppmtobmp -quiet -bpp=8 "$scratch/few" >"$scratch/bmp"
# The head's dots per metre, 7559 across and down, which the converter leaves at 0.
printf '\207\035\0\0\207\035\0\0' | dd of="$scratch/bmp" bs=1 seek=38 conv=notrunc 2>/dev/null
mv "$scratch/bmp" "$target"
