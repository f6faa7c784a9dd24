#!/usr/bin/env bash
# mutate.sh [--list] [--sample N] [--seed S] [--again] [FILE…]: puts one fault after the other into the
# product and tells which of them the tests notice. A fault is one changed line: another operator or
# constant, a swapped word, a deleted statement, a negated condition, another answer or text.
#
#   --sample N  only N of them, chosen by --seed S (1)      --again  those that once survived, anew
#   --list      only list them                              FILE…    only the faults of these files
#
# The tests are those of the product's own floors, the sweep over what may fail, and the expected outputs of
# wmihost. Everything happens in build/mutation: a copy of the sources, a build of its own, and results.tsv,
# which holds every verdict. A fault with a verdict is not tried again, so that a run that was
# interrupted goes on; --again is for those that survived, after the tests have changed.
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
  grep -E '^(provider|classes|methods|profiles|adapterapi)/.*\.(h|cpp|inc)$' | grep -vE '_(mingw|windows)\.cpp$')

# A row a fault: KEY FILE LINE KIND FAULTY-LINE. The key stays when lines move.
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

# The sources as they are now, and the tree that is built: the same but for one line.
source=$work/source
copy() { # FROM TO: what differs
  while IFS= read -r file; do
    cmp -s "$1/$file" "$2/$file" || { mkdir -p "$2/$(dirname "$file")" && cp "$1/$file" "$2/$file"; }
  done <"$work/files"
}
git ls-files -co --exclude-standard >"$work/files"
copy "$root" "$source"
copy "$source" "$tree"
# Each source is compiled for itself; for a header's faults all sources of a target are joined, since most
# of them would be compiled anew.
fastest=$(command -v ld.lld >/dev/null && for kind in EXE SHARED; do
  echo "-DCMAKE_${kind}_LINKER_FLAGS=-fuse-ld=lld"; done)
for unity in OFF ON; do
  folder=$([ $unity = ON ] && echo "$work/joined" || echo "$work/build")
  [ -f "$folder/build.ninja" ] ||
    cmake -S "$tree" -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -w" \
      -DCMAKE_UNITY_BUILD=$unity -DCMAKE_UNITY_BUILD_BATCH_SIZE=0 $fastest >/dev/null
done
build_for() { # FILE
  case $1 in
    *.cpp) echo "$work/build" ;;
    *) echo "$work/joined" ;;
  esac
}
ulimit -v 8000000

# What may notice a fault, quickest first: the tests of its own folder, those of the others, what wmihost
# prints, and the sweep.
suites_for() {
  local own=${1%%/*}
  echo "$own"
  printf '%s\n' classes provider methods profiles adapterapi | grep -vx "$own"
  echo outputs
  echo sweep
}
target_of() { [ "$1" = outputs ] && echo expected_outputs || echo "test_$1"; }
passes() { # SUITE BUILD
  cd "$work"
  case $1 in
    outputs) timeout 120 ctest --test-dir "$2" -L expected_output --stop-on-failure ;;
    *) timeout 120 "$2/bin/test_$1" --gtest_fail_fast ;;
  esac
}
# What notices the fault that is in the tree: "killed SUITE", "survived" or "did not build".
verdict() { # FILE
  local suite build
  build=$(build_for "$1")
  for suite in $(suites_for "$1"); do
    timeout 600 ninja -C "$build" "$(target_of "$suite")" >"$work/log" 2>&1 || { echo "did not build"; return; }
    (passes "$suite" "$build") >"$work/log" 2>&1 || { echo "killed $suite"; return; }
  done
  echo survived
}

echo "building without a fault" >&2
for file in provider/x.cpp provider/x.h; do
  pristine=$(verdict $file)
  [ "$pristine" = survived ] ||
    { tail -n 20 "$work/log"; echo "without a fault: $pristine"; exit 1; }
done

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

# The last verdict of each fault that the sources still hold.
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
