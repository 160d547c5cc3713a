#!/bin/bash
# Prints what the console takes of a device's storage, and fails when it has outgrown a budget.
#
#   tests/sizes.sh PROGRAM TEXT FILE    the budgets in bytes; 0 for one that there is not
set -eu
program=$1 text_budget=$2 file_budget=$3
read -r text _ < <(size "$program" | tail -n 1)
file=$(stat -c %s "$program")
over=0

# within NAME BYTES BUDGET
within() {
  [ "$3" = 0 ] && return
  echo "$program: $2 bytes of $1, budget $3"
  [ "$2" -le "$3" ] || over=1
}

within text "$text" "$text_budget"
within file "$file" "$file_budget"
exit "$over"
