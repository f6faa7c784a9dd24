#!/usr/bin/env bash
# fuzz.sh [--keep] [SECONDS [TARGET…]]: runs the fuzzers (fuzz/targets.inc), each for SECONDS (60),
# starting from their corpora and from the inputs that earlier runs found, which are in
# build/fuzz/corpus. A finding is written to build/fuzz/findings and makes the script fail. --keep only
# rebuilds fuzz/corpus: the short inputs that together reach everything that is reached, one per line in
# hexadecimal digits.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$root/cmake/prepare.sh"
keep=
if [ "${1:-}" = --keep ]; then
  keep=1
  shift
fi
seconds=${1:-60}
[ $# -eq 0 ] || shift
[ $# -gt 0 ] || set -- $(sed -n 's/^FUZZ_TARGET(\(.*\))/\1/p' "$root/fuzz/targets.inc")
install_packages native fuzz
build fuzz

work=$root/build/fuzz
mkdir -p "$work/findings"
unpack() { # TARGET FOLDER
  mkdir -p "$2"
  [ -f "$root/fuzz/corpus/$1.txt" ] || return 0
  while read -r digits; do
    basenc --base16 -d <<<"$digits" >"$2/$(sha1sum <<<"$digits" | cut -c 1-16)"
  done <"$root/fuzz/corpus/$1.txt"
}
keep_corpus() { # TARGET
  rm -rf "$work/kept/$1"
  mkdir -p "$work/kept/$1" "$root/fuzz/corpus"
  "$work/bin/$1_fuzzer" -set_cover_merge=1 "$work/kept/$1" "$work/corpus/$1" >"$work/$1.log" 2>&1
  find "$work/kept/$1" -type f -size -2 -printf '%s %p\n' | sort -n | head -n 100 | while read -r _ input; do
    basenc --base16 -w 0 "$input"
    echo
  done | sort -u >"$root/fuzz/corpus/$1.txt"
}
failed=0
for target in "$@"; do
  unpack "$target" "$work/corpus/$target"
  if [ -n "$keep" ]; then
    keep_corpus "$target"
    continue
  fi
  log=$work/$target.log
  if "$work/bin/${target}_fuzzer" -max_total_time="$seconds" -timeout=10 -max_len=4096 -print_final_stats=1 \
    -artifact_prefix="$work/findings/$target-" "$work/corpus/$target" >"$log" 2>&1; then
    sed -n "s/^stat::number_of_executed_units: *\(.*\)/$target: \1 inputs, nothing found/p" "$log"
  else
    tail -n 40 "$log"
    echo "$target: a finding; build/fuzz/$target.log"
    failed=1
  fi
done
exit $failed
