#!/usr/bin/env bash
# mutate.sh [--list] [--sample N] [--seed S] [--again] [FILE…]: puts one fault after the other into the
# product and says which of them the tests notice. A fault is one changed line: another operator or
# constant, a swapped word, a deleted statement, a negated condition, another result or text.
#
#   --sample N  only N of them, chosen by --seed S (1)      --again  those that once survived, again
#   --list      only list them                              FILE…    only the faults of these files
#
# Each fault is tried only with the tests that its folder can make fail, those of the folder first, then
# wmihost's expected outputs, until one of them fails. Everything happens in build/mutation: a copy of
# the sources, separate builds, one job, and results.tsv with every verdict. A fault with a verdict is
# not tried again, so an interrupted run can be continued; use --again for the survivors after the tests
# have changed.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
here=$root/tests/mutation
work=$root/build/mutation
tree=$work/tree
results=$work/results.tsv

sample=0 seed=1 again=0 list=0 files=()
while [ $# -gt 0 ]; do
  case $1 in
    --sample) sample=$2; shift ;;
    --seed) seed=$2; shift ;;
    --again) again=1 ;;
    --list) list=1 ;;
    -*) sed -n '2,13s/^# \{0,1\}//p' "$0"; exit 2 ;;
    *) files+=("$1") ;;
  esac
  shift
done
cd "$root"
[ ${#files[@]} -gt 0 ] || mapfile -t files < <(git ls-files |
  grep -E '^(host|scenario|simulator|provider|classes|methods|profiles|adapterapi|platform)/.*\.(h|cpp|inc)$' |
  # What only Windows compiles or, as the client of its service, reaches.
  grep -vE '_(mingw|windows)\.(h|cpp)$|/windows[./]|/service_(client|commands)\.')

# One row per fault: KEY FILE LINE KIND FAULTY-LINE. The key does not change when lines move.
faults() {
  awk -f "$here/mutants.awk" "${files[@]}" | awk -F '\t' '
    { key = $1 "|" $3 "|" $4; print key "#" ++seen[key] "\t" $0 }'
}
chosen() {
  if [ "$sample" = 0 ]; then cat; else
    sort -R --random-source=<(yes "$seed") | head -n "$sample" | sort -t "$(printf '\t')" -k 2,2 -k 3,3n
  fi
}
mkdir -p "$work"
touch "$results"
faults >"$work/faults.tsv"
if [ $list = 1 ]; then
  chosen <"$work/faults.tsv"
  exit
fi

# The present sources, and the tree that is built: the same except for one line.
source=$work/source
copy() { # FROM TO: only what differs
  while IFS= read -r file; do
    cmp -s "$1/$file" "$2/$file" || { mkdir -p "$2/$(dirname "$file")" && cp "$1/$file" "$2/$file"; }
  done <"$work/files"
}
git ls-files -co --exclude-standard >"$work/files"
copy "$root" "$source"
copy "$source" "$tree"
# Each source is compiled separately. For faults in a header each target is a unity build, since most of
# its sources would be compiled again.
fastest=$(command -v ld.lld >/dev/null && for kind in EXE SHARED MODULE; do
  echo "-DCMAKE_${kind}_LINKER_FLAGS=-fuse-ld=lld"; done)
for unity in OFF ON; do
  folder=$([ $unity = ON ] && echo "$work/unity" || echo "$work/build")
  [ -f "$folder/build.ninja" ] ||
    cmake -S "$tree" -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -w" \
      -DCMAKE_UNITY_BUILD=$unity -DCMAKE_UNITY_BUILD_BATCH_SIZE=0 $fastest >/dev/null
done
build_for() { # FILE
  case $1 in
    *.cpp) echo "$work/build" ;;
    *) echo "$work/unity" ;;
  esac
}
ulimit -v 8000000

# The tests that may notice a fault, quickest first: those of its own folder, those of the folders that
# use it, wmihost's expected outputs, and the slowest ones.
suites_for() { # FILE
  local own=${1%%/*} users=
  case $own in
    host) users='terminal outputs round_trip' ;;
    scenario) users='simulator outputs round_trip' ;;
    simulator) users='outputs round_trip' ;;
    platform) users='classes provider methods profiles adapterapi scenario simulator host outputs sweep' ;;
    *) users='classes provider methods profiles adapterapi outputs sweep' ;;
  esac
  printf '%s\n' $own $users | awk '!seen[$0]++'
}
targets_of() { # SUITE
  case $1 in
    outputs) echo expected_outputs ;;
    round_trip) echo wmihost foreign_quarn WiFiAdapterProvider ;;
    *) echo "test_$1" ;;
  esac
}
# What never ends is ended by its own time, as another's work may slow it down.
passes() { # SUITE BUILD
  cd "$work"
  ulimit -t 60
  case $1 in
    outputs) timeout 900 ctest --test-dir "$2" -L expected_output --stop-on-failure ;;
    round_trip) timeout 900 ctest --test-dir "$2" --stop-on-failure \
      -R '^wmihost_(round_trip|reproduction|foreign_library|service)$' ;;
    *) timeout 900 "$2/bin/test_$1" --gtest_fail_fast ;;
  esac
}
# Nothing if a suite passes with what is in the tree, else "killed SUITE" or "did not build".
failure_of() { # SUITE BUILD
  timeout 1800 ninja -j 1 -C "$2" $(targets_of "$1") >"$work/log" 2>&1 || { echo "did not build"; return; }
  (passes "$1" "$2") >"$work/log" 2>&1 || echo "killed $1"
}
# The result for the fault in the tree: that failure, or "survived".
verdict() { # FILE
  local suite build failure
  build=$(build_for "$1")
  for suite in $(suites_for "$1"); do
    failure=$(failure_of "$suite" "$build")
    [ -z "$failure" ] || { echo "$failure"; return; }
  done
  echo survived
}

echo "building without a fault" >&2
chosen <"$work/faults.tsv" | cut -f 2 | while read -r file; do
  for suite in $(suites_for "$file"); do echo "$suite $(build_for "$file")"; done
done | sort -u | while read -r suite build; do
  failure=$(failure_of "$suite" "$build")
  [ -z "$failure" ] || { tail -n 20 "$work/log"; echo "without a fault: $failure"; exit 1; }
done
export CCACHE_DISABLE=1  # no fault is compiled twice

trap '[ -z "${now:-}" ] || cp "$source/$now" "$tree/$now"' EXIT
trap 'exit 130' INT TERM
while IFS=$'\t' read -r key file line kind faulty <&3; do
  known=$(key=$key awk -F '\t' '$1 == ENVIRON["key"] { found = $2 } END { print found }' "$results")
  case $again$known in
    0?*) continue ;;
    1survived) ;;
    1*) continue ;;
  esac
  now=$file
  faulty=$faulty awk -v line="$line" 'FNR == line { print ENVIRON["faulty"]; next } { print }' "$source/$file" >"$tree/$file"
  found=$(verdict "$file")
  cp "$source/$file" "$tree/$file"
  printf '%s\t%s\t%s\t%s\t%s\t%s\t%s\n' "$key" "$found" "$file" "$line" "$kind" \
    "$(sed -n "${line}p" "$source/$file")" "$faulty" >>"$results"
  printf '%-22s %s:%s: %s: %s\n' "$found" "$file" "$line" "$kind" "${faulty## }"
done 3< <(chosen <"$work/faults.tsv")
now=

# The last verdict of each fault that still exists in the sources.
awk -F '\t' '
  FNR == NR { here[$1] = 1; next }
  $1 in here { verdict[$1] = $2; row[$1] = $3 ":" $4 ": " $5 ": " $7 }
  END {
    for (key in verdict) {
      if (verdict[key] ~ /^killed/) ++killed; else if (verdict[key] == "survived") { ++survived; print "survived  " row[key] } else ++unbuilt
    }
    printf "%d faults tried: %d killed, %d survived, %d did not build; %.1f %% of those that build are killed\n",
      killed + survived + unbuilt, killed, survived, unbuilt, 100 * killed / (killed + survived + 0.0001)
  }' "$work/faults.tsv" "$results"
