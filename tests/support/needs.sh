# Sourced by tests. needs PROGRAM...: where one is missing the test ends as skipped, and tells the reason. What begins with a
# slash may be any file.
needs() {
  local program
  for program in "$@"; do
    [[ "$program" == /* && -e "$program" ]] && continue
    PATH="$PATH:/usr/sbin:/sbin" command -v "$program" >/dev/null && continue
    echo "Skipped: no $program here"
    exit 77
  done
}
