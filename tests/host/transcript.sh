#!/usr/bin/env bash
# transcript.sh FILE PROGRAM…: runs each line of FILE that begins with "$ " in a shell in which wmihost
# is PROGRAM, and prints FILE with the results: comments and such lines unchanged, below each line its
# standard output, its standard error after "! " and an exit status other than 0 in brackets. The lines
# share a folder that is empty at first, and $scenarios is the folder of the product's scenarios.
set -uo pipefail
scenarios=$(cd "$(dirname "$0")/../../simulator/scenarios" && pwd)
exec 3<"$1"
shift
program=("$@")
unset WIFI_SCENARIO WIFI_PROVIDER_TRACE
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir in
cd in
wmihost() { "${program[@]}" "$@"; }

gap=
while IFS= read -r line; do
  case $line in
    '#'*)
      printf '%s%s\n' "$gap" "$line"
      gap=$'\n'
      ;;
    '$ '*)
      printf '%s\n' "$line"
      (eval "${line#??}") >../out 2>../err </dev/null
      status=$?
      cat ../out
      tr -d '\r' <../err | sed 's/^/! /'
      [ "$status" = 0 ] || echo "[$status]"
      ;;
  esac
done <&3
