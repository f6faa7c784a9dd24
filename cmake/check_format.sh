#!/usr/bin/env bash
# check_format.sh [--mend]: names the files that clang-format would change, or changes them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. cmake/source_files.sh
mkdir -p build
list=$(source_files '*.cpp' '*.h')
mapfile -t files <<<"$list"
if [ "${1:-}" = --mend ]; then
  clang-format-14 -i "${files[@]}"
elif ! clang-format-14 --dry-run --Werror "${files[@]}" 2>build/format.log; then
  grep -oE '^[^ :]+' build/format.log | sort -u | grep -E '\.(cpp|h)$' >&2 || cat build/format.log >&2
  echo "Mend with: ./test.sh --mend" >&2
  exit 1
fi
echo "${#files[@]} files are formatted"
