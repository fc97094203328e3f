#!/usr/bin/env bash
# under_valgrind.sh PROGRAM ARGUMENT...: runs tests where leaks, and reading memory that nobody wrote, are seen.
set -euo pipefail
source "$(dirname "$0")/needs.sh"
needs valgrind
exec valgrind -q --error-exitcode=9 --leak-check=full "$@"
