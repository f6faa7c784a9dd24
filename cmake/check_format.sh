#!/usr/bin/env bash
# check_format.sh [--mend]: names the files that clang-format would change, or changes them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
mkdir -p build
# Include files that git does not know yet, but not deleted ones.
files=()
while read -r -d '' file; do
  [ ! -f "$file" ] || files+=("$file")
done < <(git ls-files -zco --exclude-standard --deduplicate -- '*.cpp' '*.h')
if [ "${1:-}" = --mend ]; then
  clang-format -i "${files[@]}"
elif ! clang-format --dry-run --Werror "${files[@]}" 2>build/format.log; then
  grep -oE '^[^ :]+' build/format.log | sort -u | grep -E '\.(cpp|h)$' >&2 || cat build/format.log >&2
  echo "Mend with: ./test.sh --mend" >&2
  exit 1
fi
echo "${#files[@]} files are formatted"
