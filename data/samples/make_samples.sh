#!/bin/sh
# Draws the sample covers beside this script, with ImageMagick and the Liberation fonts:
# fronte.jpg (jewel case front, square) and retro.jpg (tray card of 150 x 118 mm at 300 dots to the inch).
set -eu
cd "$(dirname "$0")"

# hills COLOUR BASE HEIGHT PHASE WIDTH BOTTOM: one range of hills as a polygon for -draw.
hills() {
  awk -v color="$1" -v base="$2" -v height="$3" -v phase="$4" -v width="$5" -v bottom="$6" 'BEGIN {
    printf "fill %s polygon 0,%d", color, bottom
    for (x = 0; x <= width; x += 10) {
      t = x / width * 6.28318
      y = base - height * (0.55 * sin(t + phase) + 0.3 * sin(2.3 * t + 2 * phase) + 0.15 * sin(5.1 * t + phase))
      printf " %d,%.1f", x, y
    }
    printf " %d,%d", width, bottom
  }'
}

# rings X Y FROM TO STEP: thin circles about a point, like the grooves of a disc.
rings() {
  awk -v x="$1" -v y="$2" -v from="$3" -v to="$4" -v step="$5" 'BEGIN {
    printf "fill none stroke #ffffff30 stroke-width 3"
    for (r = from; r <= to; r += step) printf " circle %d,%d %d,%d", x, y, x + r, y
  }'
}

front() {
  convert -size 1500x1500 gradient:'#1b3f6b-#f6b26b' \
    -draw 'fill #ffe9c4 circle 980,690 980,910' \
    -draw "$(rings 980 690 250 620 46)" \
    -draw "$(hills '#5f86a8' 900 90 0.4 1500 1500)" \
    -draw "$(hills '#3a6f8f' 1030 110 2.1 1500 1500)" \
    -draw "$(hills '#1f9f96' 1180 90 3.9 1500 1500)" \
    -draw "$(hills '#14635f' 1330 70 5.2 1500 1500)" \
    -font Liberation-Sans-Bold -pointsize 150 -fill '#fff6e6' -annotate +110+250 'Colline' \
    -font Liberation-Sans -pointsize 62 -annotate +116+340 'dodici canzoni della sera' \
    -strip -density 300 -units PixelsPerInch -quality 86 fronte.jpg
}

# The spines are 77 pixels wide, 6.5 mm, and read from top to bottom on the left, upwards on the right.
back() {
  convert -size 1770x1392 gradient:'#21466f-#2f7f8f' \
    -draw "$(rings 1330 1010 90 520 46)" \
    -draw 'fill #f6b26b circle 1330,1010 1330,1080' \
    -draw "$(hills '#1f6f78' 1230 60 1.2 1770 1392)" \
    -draw "$(hills '#14504f' 1320 40 3.3 1770 1392)" \
    -draw 'fill #12304f rectangle 0,0 77,1391 rectangle 1692,0 1769,1391' \
    -font Liberation-Sans-Bold -pointsize 84 -fill '#fff6e6' -annotate +190+190 'Colline' \
    -font Liberation-Sans -pointsize 46 -interline-spacing 19 -annotate +190+310 "$(tracks)" \
    -font Liberation-Sans-Bold -pointsize 46 \
    -annotate 90x90+24+110 'Colline' -annotate 270x270+1746+1280 'Colline' \
    -strip -density 300 -units PixelsPerInch -quality 86 retro.jpg
}

tracks() {
  cat <<'TRACKS'
1   Il sentiero
2   Prima luce
3   Vento dal mare
4   Case bianche
5   La vecchia corriera
6   Controluce
7   Pioggia d'aprile
8   Il ponte
9   Lucciole
10 Ultimo treno
11 Stelle basse
12 Buonanotte, colline
TRACKS
}

front
back
