#!/usr/bin/env bash
# Draws the pictures of the bars from assets/icons/*.svg into assets/graphics/icons/*.gif. Needs
# rsvg-convert and ImageMagick's convert; only who changes a drawing has to run it.
#
#   tools/make_icons.sh          draws all pictures
#   tools/make_icons.sh SHEET    also draws all of them into the picture file SHEET, on a light and on
#                                a dark ground, for a look at them
set -euo pipefail
cd "$(dirname "$0")/.."

drawings=assets/icons
pictures=assets/graphics/icons
on_colour='#3584d4'
off_colour='#84888d'
size=24

# Drawings with a picture for each state, by the way in which the state is spelled.
lower=(display_standard display_advanced ViewEDT ViewPFT print help internet ViewBOM ViewPhotoplot
  ViewSchematic ViewDatasheet)
upper=(Move_Prev Move_Next)
# Drawings with one picture for both.
single=(Zoom_In Zoom_Out Save_BOM Save_Image Save_Photoplot Save_Schematic 'Table New'
  'Table Delete' 'Table Load' 'Table Save' 'Table Export')

# draw DRAWING PICTURE COLOUR. A GIF knows no half-transparent points: a point is drawn when at least
# two fifths of it are covered.
draw() {
  sed "s/color=\"$on_colour\"/color=\"$3\"/" "$drawings/$1.svg" |
    rsvg-convert --width "$size" --height "$size" |
    convert png:- -channel A -threshold 40% +channel -fill "$3" -colorize 100 -strip \
      "$pictures/$2.gif"
}

mkdir -p "$pictures"
for name in "${lower[@]}"; do
  draw "$name" "$name-on" "$on_colour"
  draw "$name" "$name-off" "$off_colour"
done
for name in "${upper[@]}"; do
  draw "$name" "$name-On" "$on_colour"
  draw "$name" "$name-Off" "$off_colour"
done
for name in "${single[@]}"; do
  draw "$name" "$name" "$on_colour"
done

if [ $# -eq 1 ]; then
  for ground in '#ffffff' '#202124'; do
    montage "$pictures"/*.gif -background "$ground" -filter point -resize 200% \
      -geometry 64x64 -tile 13x miff:-
  done | convert - -append "$1"
fi
