#!/usr/bin/env bash
# Draws the program's icons, the pictures of executing2's frame and that of the installer from their sources. The results are
# committed, so that a build needs none of these tools; run this after a change of a source.
#
#   tools/make_pictures.sh        needs rsvg-convert, convert (ImageMagick) and icotool
set -euo pipefail
cd "$(dirname "$0")/../assets"
workshop=$(mktemp -d)
trap 'rm -rf "$workshop"' EXIT

draw() { rsvg-convert -w "$2" -h "$2" "$1" -o "$workshop/$3"; }

for name in tessarine job; do
    for size in 16 20 24; do draw ${name}_small.svg $size "${name}_$size.png"; done
    for size in 32 40 48 64 256; do draw $name.svg $size "${name}_$size.png"; done
    icotool -c -o $name.ico "$workshop/$name"_{16,20,24,32,40,48,64}.png --raw="$workshop/${name}_256.png"
done

for name in schedule schedule_off; do
    for size in 32 48 64; do draw $name.svg $size "${name}_$size.png"; done
    icotool -c -o $name.ico "$workshop/$name"_{32,48,64}.png
done

for scale in 100 125 150 200 300; do
    draw frame.svg $((48 * scale / 100)) "frame_$scale.png"
    # No alpha and no smoothed edge: what is pure blue is left out of the window, and only that.
    convert "$workshop/frame_$scale.png" -background '#0000ff' -alpha remove -alpha off "BMP3:frame_$scale.bmp"
done

rsvg-convert ../packaging/side.svg -o "$workshop/side.png"
convert "$workshop/side.png" -alpha off "BMP3:../packaging/side.bmp"
