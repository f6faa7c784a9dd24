# Sourced by the checks. source_files PATTERN… prints the files of this folder whose names match: in a
# checkout the files that git knows or does not ignore, in an unpacked archive all files outside build/.
# Finding no file is an error, so that no check passes without having seen a file.
source_files() {
  local pattern names=()
  for pattern in "$@"; do names+=(-o -name "$pattern"); done
  if [ "$(git rev-parse --show-toplevel 2>/dev/null)" = "$(pwd -P)" ]; then
    git ls-files -co --exclude-standard --deduplicate -- "$@"
  else
    find . -path ./build -prune -o -type f \( "${names[@]:1}" \) -printf '%P\n'
  fi | while IFS= read -r file; do
    # git also lists deleted files whose deletion is not committed.
    [ ! -f "$file" ] || printf '%s\n' "$file"
  done | sort | grep . || { echo "$PWD has no file named $*" >&2 && return 1; }
}
