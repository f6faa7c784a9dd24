#!/usr/bin/env bash
# Builds everything and runs all tests: format check, native, with sanitizers, and the Windows
# product through Wine.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$root/cmake/prepare.sh"

install_packages native windows format
echo "== format"
"$root/cmake/check_format.sh"
for preset in native sanitize windows; do
  echo "== $preset"
  build "$preset"
  [ "$preset" != windows ] || use_wine
  (cd "$root" && ctest --preset "$preset")
done
