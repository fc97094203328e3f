#!/usr/bin/env bash
# default_sheet_test.sh BIN: whose default printer takes Letter sees the page as A4 first; it is drawn anew for that sheet
# once the spooler has told it, without a touch.
set -euo pipefail
bin=$(cd "$1" && pwd)
cd "$(dirname "$0")/../.."
source tools/desktop
scale=2

"$bin/letter-spooler" >"$home/spooler" &
pids+=($!)
await "the spooler" grep . "$home/spooler"

# right_edge: of the upper cover, in pixels of the page, which is 4380 twips wide.
right_edge() {
  import -window "$id" -crop "$((4380 * scale / 15))x4+$((45 * scale / 15))+$((2800 * scale / 15))" +repage png:- |
    convert - -shave 3x0 -threshold 50% -negate -trim -format '%X %w' info: | awk '{ print $1 + $2 + 3 }'
}

# drawn_for WIDTH: that edge, 146 mm from the left, lies where a sheet so many millimetres wide has it, to 4 pixels.
drawn_for() {
  awk -v found="$(right_edge)" -v wanted="$((146 * 4380 * scale / 15))" -v sheet="$1" \
    'BEGIN { off = found - wanted / sheet; exit off < -4 || off > 4 }'
}

start CUPS_SERVER="$(cat "$home/spooler")"
await "the page of Letter" drawn_for 215.9
stop
start
await "the page of A4" drawn_for 210
stop
