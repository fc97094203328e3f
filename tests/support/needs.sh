# Sourced by tests. needs PROGRAM...: where one is missing the test ends as skipped, and tells the reason.
needs() {
  local program
  for program in "$@"; do
    PATH="$PATH:/usr/sbin:/sbin" command -v "$program" >/dev/null && continue
    echo "Skipped: no $program here"
    exit 77
  done
}
