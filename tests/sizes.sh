#!/bin/bash
# Fails when the console has outgrown its place in a device's storage: sizes.sh PROGRAM TEXT FILE, the budgets in bytes.
set -eu
read -r text _ < <(size "$1" | tail -n 1)
file=$(stat -c %s "$1")
echo "$1: $text bytes of text, budget $2; $file bytes of file, budget $3"
[ "$text" -le "$2" ] && [ "$file" -le "$3" ]
