# Sourced by scripts that use the program as a person does. Starts a screen of its own with a window manager, a home folder
# and a program folder of its own, and no printer; everything ends and goes with the script.
# Before sourcing: bin, the folder of the built programs, and manager=none where what is started manages its windows itself.
# After: $home, and the functions below.

home=$(mktemp -d "${TMPDIR:-/tmp}/morvane-XXXXXX")
pids=()
clean_up() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$home"
}
trap clean_up EXIT

# await WHAT COMMAND...: waits until the command succeeds.
await() {
  local what=$1
  shift
  for _ in $(seq 300); do
    "$@" >/dev/null 2>&1 && return 0
    sleep 0.05
  done
  echo "in vain waited for $what" >&2
  import -window root "${TMPDIR:-/tmp}/morvane-screen.png" && echo "the screen is in ${TMPDIR:-/tmp}/morvane-screen.png" >&2
  exit 1
}

mkdir -p "$home/Programmi" "$home/Documenti" "$home/.config"
mkdir -m 700 "$home/.runtime"
echo 'XDG_DOCUMENTS_DIR="$HOME/Documenti"' >"$home/.config/user-dirs.dirs"
cp "$bin"/morvane data/layouts/*.mvne data/program_folder/* "$home/Programmi/"

# Without -noreset the server would start anew whenever the last program that looks at it has ended.
Xvfb -displayfd 3 -noreset -nolisten tcp -screen 0 2560x2048x24 -dpi 96 3>"$home/.display" 2>/dev/null &
pids+=($!)
await "the display" test -s "$home/.display"
export DISPLAY=:$(cat "$home/.display") HOME=$home XDG_RUNTIME_DIR=$home/.runtime XDG_CONFIG_HOME=$home/.config
export CUPS_SERVER=$home/none # nothing listens there
unset WAYLAND_DISPLAY XDG_DATA_HOME XDG_DOCUMENTS_DIR
if [[ "${manager:-openbox}" = openbox ]]; then
  openbox >/dev/null 2>&1 &
  pids+=($!)
  await "the window manager" xdotool get_num_desktops
fi

# start [VARIABLE=VALUE...]: the program; its process is $program.
start() {
  env QT_SCALE_FACTOR=1 "$@" "$home/Programmi/morvane" 2>/dev/null &
  program=$!
  pids+=("$program")
  window Morvane
}

stop() {
  kill "$program"
  wait "$program" 2>/dev/null || true
}

shown() {
  id=$(xdotool getactivewindow 2>/dev/null) && [[ "$(xdotool getwindowname "$id")" == "$1" ]]
}

# window TITLE: waits until the window with exactly this title has the keyboard; its number is $id.
window() { await "the window '$1'" shown "$1"; }

# gone TITLE: waits until that window is closed.
hidden() { ! xdotool search --onlyvisible --name "^$1\$"; }
gone() { await "the end of '$1'" hidden "$1"; }

# click TITLE X Y: a place of the window, in twips.
click() {
  window "$1"
  xdotool mousemove --window "$id" $(($2 / 15)) $(($3 / 15)) click 1
}

# leave TITLE: by Esc.
leave() {
  xdotool key Escape
  gone "$1"
}
