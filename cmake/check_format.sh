#!/usr/bin/env bash
# Says which files clang-format would change, and how to mend them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
mkdir -p build
mapfile -d '' files < <(git ls-files -z -- '*.cpp' '*.h')
if ! clang-format --dry-run --Werror "${files[@]}" 2>build/format.log; then
  grep -oE '^[^ :]+' build/format.log | sort -u | grep -E '\.(cpp|h)$' >&2 || true
  echo "Mend with: git ls-files -z -- '*.cpp' '*.h' | xargs -0 clang-format -i" >&2
  exit 1
fi
echo "${#files[@]} files are formatted"
