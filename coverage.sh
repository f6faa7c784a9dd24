#!/usr/bin/env bash
# Runs the native tests and prints which share of the product's lines and branches they run, one row per
# folder. Branches into the clean-up after an exception are not counted, nor is the template code that is
# instantiated for each of the 68 operations: each instance has the same branches. ./coverage.sh
# --missing also lists what did not run. Fails if a folder is below 99 % of the lines or 95 % of the
# branches.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$root/cmake/prepare.sh"
install_packages native coverage

build coverage
find "$root/build/coverage" -name '*.gcda' -delete
(cd "$root" && ctest --preset coverage -E 'terminal|browser|reference' >"$root/build/coverage/tests.log") || {
  tail -n 40 "$root/build/coverage/tests.log" >&2
  exit 1
}
report() {
  gcovr "$root/build/coverage" --root "$root" --filter "$root/(provider|classes|methods|profiles|adapterapi)/" \
    --exclude '.*/call_trace\.h' --exclude-branches-by-pattern '^QUARN_OPERATION' \
    --exclude-throw-branches --exclude-unreachable-branches "$@"
}
report --csv -o "$root/build/coverage/coverage.csv" --html-details "$root/build/coverage/coverage.html"
if [ "${1:-}" = --missing ]; then
  report --txt | awk '$1 ~ /\// && $4 != "100%"'
  report --txt --branches | awk '$1 ~ /\// && $4 != "100%"'
fi
# filename,line_total,line_covered,line_percent,branch_total,branch_covered,…
awk -F , '
  NR > 1 {
    folder = $1
    sub(/\/.*/, "", folder)
    lines[folder] += $2; run[folder] += $3; branches[folder] += $5; taken[folder] += $6
    lines["all"] += $2; run["all"] += $3; branches["all"] += $5; taken["all"] += $6
  }
  function row(folder) {
    printf "%-12s %5d lines  %6.2f %%  %5d branches  %6.2f %%\n", folder, lines[folder], 100 * run[folder] / lines[folder],
      branches[folder], branches[folder] ? 100 * taken[folder] / branches[folder] : 100
    low = low || run[folder] < 0.99 * lines[folder] || taken[folder] < 0.95 * branches[folder]
  }
  END {
    split("provider classes methods profiles adapterapi all", order, " ")
    for (i = 1; i <= 6; ++i) row(order[i])
    exit low
  }' "$root/build/coverage/coverage.csv"
echo "the lines themselves: build/coverage/coverage.html"
