#!/usr/bin/env bash
# Builds and tests; ./test.sh --help says how.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$root/cmake/prepare.sh"

# One row per step, in the order in which they run: name, whether a plain ./test.sh runs it (+) or only
# if it is named (-), Debian packages (parts of cmake/prepare.sh), description. Its commands are in the
# function step_NAME.
steps='
--mend    - native,format          format, and rebuild every generated document and expected output
format    + format                 formatting of all C++ sources
floors    + format                 no include of a higher floor
--lint    - native,lint            clang-tidy and cppcheck over all product sources
native    - native,browser         the same without sanitizers, as ./run.sh builds
sanitize  + native,browser         build natively with AddressSanitizer and UndefinedBehaviorSanitizer, all tests
windows   + native,windows         build the Windows product, all tests under Wine
'
step_--mend() {
  "$root/cmake/check_format.sh" --mend
  build native expected_outputs
  local log=$root/build/mend.log
  if ! (cd "$root" && WIFI_MEND=1 ctest --preset native -L expected_output --verbose) >"$log" 2>&1; then
    tail -n 60 "$log" >&2
    return 1
  fi
  sed -n "s|^[0-9]*: mended $root/|mended |p" "$log"
}
step_format() { "$root/cmake/check_format.sh"; }
step_floors() { "$root/cmake/check_floors.sh"; }
step_--lint() { "$root/cmake/check_lint.sh"; }
step_native() { test_preset native; }
step_sanitize() { test_preset sanitize; }
step_windows() {
  use_wine
  test_preset windows
}

test_preset() {
  build "$1"
  (cd "$root" && ctest --preset "$1")
}

rows() { grep . <<<"$steps"; }
rows_marked() { rows | sed -nE "s/^([^ ]+) +[$1] +[^ ]+ +/  \\1\t/p"; }
usage() {
  echo "usage: ./test.sh [STEP]…"
  echo "Runs the steps that are named, else all of these, in this order, and stops at the first failure:"
  rows_marked + | expand -t 14
  echo "Only when named:"
  rows_marked - | expand -t 14
}

for word in "$@"; do
  case $word in -h | --help) usage && exit 0 ;; esac
  if ! rows | awk -v word="$word" '$1 == word { found = 1 } END { exit !found }'; then
    echo "./test.sh: there is no step '$word'" >&2
    usage >&2
    exit 2
  fi
done
chosen=() packages=()
while read -r name marked parts _; do
  case " $* " in
    "  ") [ "$marked" = + ] || continue ;;
    *" $name "*) ;;
    *) continue ;;
  esac
  chosen+=("$name")
  packages+=(${parts//,/ })
done < <(rows)

install_packages "${packages[@]}"
finish() {
  local code=$?
  [ "$code" = 0 ] || echo "== $step failed after $((SECONDS - started)) s" >&2
}
trap finish EXIT
for step in "${chosen[@]}"; do
  started=$SECONDS
  echo "== $step"
  "step_$step"
done
echo "== passed: ${chosen[*]} ($SECONDS s)"
