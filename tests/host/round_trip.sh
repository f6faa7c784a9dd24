#!/usr/bin/env bash
# round_trip.sh SEEDS FOLDER PROGRAM…: wmihost, which is PROGRAM, dumps each scenario in FOLDER and SEEDS
# random ones and makes scenarios from the dumps, whose dumps must be the same, byte for byte.
set -euo pipefail
seeds=$1 folder=$2
shift 2
program=("$@")
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
unset WIFI_SCENARIO WIFI_PROVIDER_TRACE
export SOURCE_DATE_EPOCH=0

wmihost() {  # OUTPUT ARGUMENT…; a failing request is a valid answer too
  local output=$1 status=0
  shift
  "${program[@]}" "$@" >"$output" 2>errors </dev/null || status=$?
  case $status in 0 | 3 | 4) ;; *)
    echo "$name: wmihost $* ends with $status:" && cat errors && return 1 ;;
  esac
}
# Leaves out the name of what was played, which is not the same.
told() { sed -i '/^      "Source": {$/,/^      }/d' "$1"; }
bad=0 count=0
check() {  # NAME SCENARIO
  local name=$1
  wmihost first.json --scenario "$2" --format json dump || return 1
  wmihost made.json scenario --from-dump first.json || return 1
  wmihost second.json --scenario made.json --format json dump || return 1
  told first.json && told second.json
  cmp -s first.json second.json || { echo "$name: shows otherwise:" && diff first.json second.json | head -20 && return 1; }
}
for file in "$folder"/*.json; do
  cp "$file" scenario.json
  check "$(basename "$file")" scenario.json || bad=1
  count=$((count + 1))
done
for seed in $(seq "$seeds"); do
  awk -v seed="$seed" -f "$here/random_scenario.awk" >scenario.json
  check "seed $seed" scenario.json || bad=1
  count=$((count + 1))
done
[ "$count" -gt "$seeds" ] && [ "$bad" = 0 ] && echo "$count scenarios come back"
