#!/usr/bin/env bash
# Builds and tests; ./test.sh --help says how.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$root/cmake/prepare.sh"

# One row per step, in the order in which they run: name, whether a plain ./test.sh runs it (+) or only
# if it is named (-), parts of the package table in cmake/prepare.sh, description. Its commands are in
# the function step_NAME.
steps='
--mend        - native,format          format, and rebuild every generated document and expected output
format        + format                 formatting of all C++ sources
floors        + none                   no include of a higher floor
--lint        - native,lint            clang-tidy and cppcheck over all product sources
native        - native,browser         build natively as ./run.sh does, all tests
no-unity      - native,browser         build natively with each source compiled alone, all tests
sanitize      + native,browser         build natively with AddressSanitizer and UndefinedBehaviorSanitizer, all tests
windows       + native,windows         build the Windows product, all tests under Wine
windows-clang - native,windows         build the module for Windows with clang, the tests of fence, module and sweep
fleet         - native,fleet           metrics, rules and dashboard, with 500 simulated machines and a Prometheus
fresh         - fresh                  both commands of the README on new machines of the Debian releases named after it
                                       (bookworm and trixie)
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
step_no-unity() { test_preset no-unity; }
step_sanitize() { test_preset sanitize; }
step_windows() { test_preset windows; }
step_windows-clang() { test_preset windows-clang; }
step_fleet() {
  build native wmihost WiFiAdapterProvider
  "$root/tests/fleet/fleet.sh" "$root/build/native/bin/wmihost" "$root/build/fleet"
}
step_fresh() { "$root/cmake/fresh_machine.sh" "${releases[@]}"; }

test_preset() {
  build_options=(-DCMAKE_COMPILE_WARNING_AS_ERROR=ON)
  build "$1"
  [[ $1 != windows* ]] || use_wine
  if [ "$times" = 1 ]; then
    (cd "$root" && ctest --preset "$1")
  else
    "$root/cmake/repeat_tests.sh" "$1" "$times"
  fi
}

rows() { grep -E '^[^ ]' <<<"$steps"; }
rows_marked() { # + or -: their names and descriptions, with continuation lines
  awk -v mark="$1" '/^[^ ]/ { on = ($2 == mark) } on' <<<"$steps" | sed -E 's/^(.{14})..(.{23})/  \1/'
}
usage() {
  echo "usage: ./test.sh [--repeat N] [STEP]…"
  echo "Runs the steps that are named, else all of these, in this order, and stops at the first failure:"
  rows_marked +
  echo "Only when named:"
  rows_marked -
  echo "--repeat N runs the tests N times, in random order, with another load on the machine, and prints of"
  echo "each how often it failed, and its fastest and slowest time."
}
refuse() {
  echo "./test.sh: $1" >&2
  usage >&2
  exit 2
}

times=1 named=() releases=()
while [ $# -gt 0 ]; do
  case $1 in
    -h | --help) usage && exit 0 ;;
    --repeat)
      times=${2:-}
      [[ $times =~ ^[1-9][0-9]*$ ]] || refuse "--repeat takes a number"
      shift
      ;;
    *)
      if rows | awk -v word="$1" '$1 == word { found = 1 } END { exit !found }'; then
        named+=("$1")
      elif [[ " ${named[*]} " = *" fresh "* ]]; then
        releases+=("$1")
      else
        refuse "there is no step '$1'"
      fi
      ;;
  esac
  shift
done
chosen=() parts=()
while read -r name marked of _; do
  case " ${named[*]} " in
    "  ") [ "$marked" = + ] || continue ;;
    *" $name "*) ;;
    *) continue ;;
  esac
  if declare -F "cannot_$name" >/dev/null && reason=$("cannot_$name"); then
    echo "== $name is left out: $reason"
    [ ${#named[@]} = 0 ] && continue
    exit 1
  fi
  chosen+=("$name")
  parts+=(${of//,/ })
done < <(rows)

install_packages "${parts[@]}"
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
