#!/usr/bin/env bash
# wayland_test.sh BIN: starts the program on a Wayland desktop without a screen and looks for its first page there, with the
# two covers that a first run shows.
set -euo pipefail
bin=$(cd "$1" && pwd)
data=$(cd "$(dirname "$0")/../../data" && pwd)
source "$data/../tests/support/needs.sh"
needs weston weston-screenshooter convert

work=$(mktemp -d)
pids=()
clean_up() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap clean_up EXIT

mkdir -m 700 "$work/runtime"
mkdir "$work/home" "$work/Programmi" "$work/shots"
cp "$bin/morvane" "$data/program_folder/morvane.ini" "$work/Programmi/"
export HOME=$work/home XDG_RUNTIME_DIR=$work/runtime WAYLAND_DISPLAY=morvane-test
unset DISPLAY XDG_CONFIG_HOME XDG_DATA_HOME

# The debug protocol allows taking the screen's picture.
weston --backend=headless-backend.so --use-pixman --width=1280 --height=1024 --socket="$WAYLAND_DISPLAY" --no-config \
  --idle-time=0 --debug >"$work/weston.log" 2>&1 &
pids+=($!)
for _ in {1..100}; do
  [[ -S "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY" ]] && break
  sleep 0.1
done
QT_QPA_PLATFORM=wayland CUPS_SERVER=127.0.0.1:9 "$work/Programmi/morvane" 2>"$work/morvane.log" &
pids+=($!)

# The large white places of the screen, as WIDTHxHEIGHT, from the top down.
white_places() {
  rm -f "$work"/shots/*
  (cd "$work/shots" && weston-screenshooter >/dev/null 2>&1) || return 0
  convert "$work"/shots/*.png -alpha off -fill black +opaque white -define connected-components:verbose=true \
    -define connected-components:area-threshold=5000 -connected-components 4 null: |
    awk '/(255|white)/ { split($2, box, "+"); print box[3], box[1] }' | sort -n | cut -d ' ' -f 2
}

# An A4 page, then covers of 121 x 121 and 150 x 118 mm, each within two pixels.
for _ in {1..40}; do
  seen=$(white_places | tr '\nx' '  ')
  awk -v seen="$seen" 'BEGIN {
    n = split(seen, px, " "); split("210 297 121 121 150 118", mm, " "); scale = px[2] / mm[2]; bad = n != 6 || px[2] < 300
    for (i = 1; i <= n && !bad; i++) { off = px[i] - mm[i] * scale; bad = off > 2.5 || off < -2.5 }
    exit bad }' && break
  if grep -q 'platform plugin "wayland"' "$work/morvane.log"; then
    echo "Skipped: the toolkit's plug-in for Wayland is not here"
    exit 77
  fi
  sleep 0.25
  seen=
done
[[ -n "$seen" ]] || {
  cat "$work"/*.log >&2
  echo "FAILED: no page on the screen; white places: $(white_places | tr '\n' ' ')" >&2
  exit 1
}
echo "page and covers, in pixels: $seen"
