#!/usr/bin/env bash
# repeat_tests.sh PRESET TIMES: runs the tests of a built preset this many times, in random order and
# with a busy loop for each core at the same time. Prints each test's failures and its fastest and
# slowest time; fails if a test failed. The output of the failing tests is in build/repeat/.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
preset=$1 times=$2
logs=build/repeat/$preset
rm -rf "$logs" && mkdir -p "$logs"

load=()
for ((core = 0; core < $(nproc); ++core)); do
  (while :; do :; done) &
  load+=($!)
done
trap 'kill "${load[@]}"' EXIT

for ((run = 1; run <= times; ++run)); do
  status=passed
  ctest --preset "$preset" --schedule-random >"$logs/$run.log" 2>&1 || status="failed: $logs/$run.log"
  echo "$preset, run $run of $times: $status"
done

# " 3/37 Test #12: name ......   Passed    0.10 sec"
awk '
  / Test +#[0-9]+: / {
    match($0, /#[0-9]+: /)
    split(substr($0, RSTART + RLENGTH), words, " ")
    name = words[1]
    seconds = $(NF - 1)
    if (!(name in runs) || seconds < fastest[name]) fastest[name] = seconds
    if (seconds > slowest[name]) slowest[name] = seconds
    ++runs[name]
    if ($0 !~ / Passed /) { ++failures[name]; ++all }
  }
  END {
    printf "%-34s %6s %9s %10s %10s\n", "test", "runs", "failures", "fastest s", "slowest s"
    for (name in runs) {
      printf "%-34s %6d %9d %10.2f %10.2f\n", name, runs[name], failures[name], fastest[name], slowest[name] | "sort"
      ++tests
    }
    close("sort")
    if (tests == 0) print "no test was run"
    exit all > 0 || tests == 0
  }' "$logs"/*.log
