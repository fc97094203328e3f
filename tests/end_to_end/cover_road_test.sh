#!/usr/bin/env bash
# cover_road_test.sh BIN: a person's road through the program, by mouse and keyboard on a real screen: click inside a cover,
# find a picture, print, measure; then change a layout in the editor, save
# it under a new name, print and measure that, give it another cover, rename it and delete it.
set -euo pipefail
bin=$(cd "$1" && pwd)
cd "$(dirname "$0")/../.."
source tests/support/needs.sh
needs Xvfb openbox xdotool convert pdftocairo /usr/share/i18n/locales/it_IT
source tests/support/desktop.sh

picker="Morvane - Scelta immagine"
editor="Apertura file copertine"
mkdir "$home/Desktop"
convert -size 600x600 xc:'#c02020' -quality 95 "$home/Desktop/rosso.jpg"

# print_to NAME: prints from the main window; with no printer installed the job becomes the file Documenti/NAME.pdf.
print_to() {
  window Morvane
  xdotool key ctrl+s
  window Stampa
  xdotool key Return
  gone Stampa
  sheet="$home/Documenti/$1.pdf"
  await "the sheet" pdfinfo "$sheet"
}

# expect_red X Y WIDTH HEIGHT: the red picture on the sheet, in millimetres; 0.05 for sizes, 0.10 for the place.
expect_red() {
  pdftocairo -r 600 -singlefile -png "$sheet" "$home/sheet"
  local box
  # Red without green: half of it at an edge that covers half a pixel, nothing for black and white.
  box=$(convert "$home/sheet.png" -color-matrix '1 -1 0  1 -1 0  1 -1 0' -threshold 31.4% -trim \
    -format '%X %Y %w %h' info:)
  awk -v wanted="$1 $2 $3 $4" -v found="$box" 'BEGIN {
    split(wanted, w); split(found, f); split("0.10 0.10 0.05 0.05", limit); bad = 0
    for (i = 1; i <= 4; i++) {
      mm = f[i] * 25.4 / 600
      printf "%s%.3f mm (wanted %s)", (i > 1 ? ", " : "red box: "), mm, w[i]
      off = mm - w[i]; if (off < 0) off = -off
      if (off > limit[i]) bad = 1
    }
    print ""; exit bad }'
}

# Layouts stay open once read: the program takes as many files as it may.
ulimit -Sn 256
start
(($(awk '/^Max open files/ { print $4 }' "/proc/$program/limits") > 256))
click Morvane 1700 2600 # inside cover 1
click "$picker" 1500 700 # the desktop, with its one picture
click "$picker" 8000 780
gone "$picker"
print_to Morvane
expect_red 25 25 121 121
grep -q '^FileFolder=C:\\.*Desktop' "$home/Programmi/morvane.ini"

# A disc's cover, one millimetre wider and two further right, under a name of its own.
window Morvane
xdotool key ctrl+p
click "$editor" 800 600
xdotool type --delay 15 "CD - Fronte"
click "$editor" 4725 6090
click "$editor" 6825 6090
click "$editor" 6825 6090
xdotool key alt+n
window Morvane
xdotool key ctrl+a
xdotool type --delay 15 "Prova di strada"
xdotool key Return
await "the new layout" test -s "$home/Programmi/Prova di strada.mvne"
click "$editor" 7600 660
gone "$editor"
left=$(($(tr -d '\r' <"$home/Programmi/CD - Fronte e retro.mvne" | sed -n 's/^Distx1=//p') + 2))
top=$(tr -d '\r' <"$home/Programmi/CD - Fronte e retro.mvne" | sed -n 's/^Disty1=//p')
print_to "Prova di strada"
expect_red "$left" "$top" 122 121

# A third cover for it, then another name, then away with it.
window Morvane
xdotool key ctrl+p
click "$editor" 1860 6060
click "$editor" 7600 3930
await "the third cover" grep -q '^Larg3=50' "$home/Programmi/Prova di strada.mvne"
click "$editor" 7600 3000
window "Rinomina un file di copertine"
xdotool key ctrl+a
xdotool type --delay 15 "Altra prova"
xdotool key Return
await "the new name" test -s "$home/Programmi/Altra prova.mvne"
[[ ! -e "$home/Programmi/Prova di strada.mvne" ]]
click "$editor" 7600 2535
window Morvane
xdotool key Return
await "the end of the layout" test ! -e "$home/Programmi/Altra prova.mvne"
leave "$editor"
stop

# Where numbers have a comma: a width typed with a point is shown, and saved when its cover is not on show, with a comma,
# and a comma ends a number when the layout is read.
mkdir "$home/locale"
localedef -i it_IT -f UTF-8 "$home/locale/it_IT.UTF-8"
start LOCPATH="$home/locale" LC_ALL=it_IT.UTF-8
xdotool key ctrl+p
click "$editor" 800 600
xdotool type --delay 15 "CD - Fronte"
click "$editor" 4200 5625
xdotool key ctrl+a
xdotool type --delay 15 93.7
xdotool key Return
click "$editor" 4350 3300 # the other cover
click "$editor" 7600 3930
await "the width with a comma" grep -q '^Larg1=93,7' "$home/Programmi/CD - Fronte e retro.mvne"
click "$editor" 7600 660
gone "$editor"
window Morvane
click Morvane 1700 2600
click "$picker" 1500 700
click "$picker" 8000 780
gone "$picker"
print_to "CD - Fronte e retro"
expect_red "$((left - 2))" "$top" 93 121
stop
