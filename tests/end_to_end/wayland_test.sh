#!/usr/bin/env bash
# wayland_test.sh BIN: the program on a Wayland desktop, used by mouse and keyboard: its first page with the two covers that a
# first run shows, a window opened and closed again, and a picture loaded into a cover.
set -euo pipefail
bin=$(cd "$1" && pwd)
cd "$(dirname "$0")/../.."
source tests/support/needs.sh
needs Xvfb xdotool weston convert
manager=none
source tests/support/desktop.sh

# The desktop is a window in a corner of the screen.
weston --backend=x11-backend.so --use-pixman --width=1280 --height=1024 --socket=morvane-test --no-config --idle-time=0 \
  >"$home/weston.log" 2>&1 &
pids+=($!)
await "the desktop" test -S "$XDG_RUNTIME_DIR/morvane-test"

# places COLOUR: the large places of this colour on the desktop, each "WIDTH HEIGHT LEFT TOP", from the top down.
places() {
  import -window root -crop 1280x1024+0+0 png:- | convert - +repage -alpha off -fill black +opaque "$1" -fill white -opaque "$1" \
    -define connected-components:verbose=true -define connected-components:area-threshold=3000 -connected-components 4 null: |
    awk '/(255|white)/ { split($2, box, /[x+]/); print box[1], box[2], box[3], box[4] }' | sort -n -k 4
}

# An A4 page, then covers of 121 x 121 and 150 x 118 mm, each within two pixels; $cover is the first one's place.
shows_page() {
  local seen
  seen=$(places white)
  cover=$(sed -n 2p <<<"$seen")
  awk '{ px[++n] = $1; px[++n] = $2 }
    END {
      split("210 297 121 121 150 118", mm, " "); scale = px[2] / mm[2]; bad = n != 6 || px[2] < 300
      for (i = 1; i <= n && !bad; i++) { off = px[i] - mm[i] * scale; bad = off > 2.5 || off < -2.5 }
      exit bad }' <<<"$seen"
}

# The picker alone has a yellow line, the folder's; the preview is red, and so is the cover that has the picture.
shows_picker() { [[ -n "$(places '#ffffc0')" ]]; }
shows_preview() { shows_picker && [[ "$(places '#c02020')" == "180 180 "* ]]; }
shows_cover() {
  ! shows_picker && places '#c02020' | awk -v cover="$cover" '
    END { split(cover, px); for (i = 1; i <= 4; i++) if ($i - px[i] > 2 || px[i] - $i > 2) exit 1 }'
}
ended() { ! kill -0 "$program"; }

# click_cover: in its middle, where all is white but the pointer.
points() { [[ "$(import -window root -crop "9x9+$1+$2" png:- | convert - -format '%[fx:mean<1]' info:)" = 1 ]]; }
click_cover() {
  local width height left top
  read -r width height left top <<<"$cover"
  left=$((left + width / 2)) top=$((top + height / 2))
  xdotool mousemove "$left" "$top"
  await "the pointer" points "$left" "$top"
  xdotool click 1
}

mkdir "$home/Desktop"
convert -size 600x600 xc:'#c02020' "$home/Desktop/rosso.bmp"
env -u DISPLAY QT_QPA_PLATFORM=wayland WAYLAND_DISPLAY=morvane-test "$home/Programmi/morvane" 2>"$home/morvane.log" &
program=$!
pids+=("$program")
starts() { shows_page || ended; }
await "the page" starts
if ended; then
  cat "$home/morvane.log" >&2
  grep -q 'platform plugin "wayland"' "$home/morvane.log" || exit 1
  echo "Skipped: the toolkit's plug-in for Wayland is not here"
  exit 77
fi

click_cover
await "the picker" shows_picker
xdotool key alt+a
await "the page again" shows_page
click_cover
await "the picker once more" shows_picker
xdotool key Home # the desktop, with its one picture
await "the preview" shows_preview
xdotool key alt+o
await "the picture in its cover" shows_cover
