#!/usr/bin/env bash
# expected_output.sh NAME FILE SECTION STATUS WORK COMMAND…: runs COMMAND and compares its standard
# output with FILE, byte for byte, and its exit status with STATUS. With a SECTION (else empty) only the
# lines of FILE between "<!-- begin SECTION" and "<!-- end SECTION" are compared. WORK is a folder for
# temporary files. With WIFI_MEND=1 the new output is written into FILE instead.
set -euo pipefail
name=$1 file=$2 section=$3 status=$4 work=$5
shift 5
mkdir -p "$work"
printed=$work/$name.printed
expected=$work/$name.expected

begin="<!-- begin $section" end="<!-- end $section"
# The lines of the section, or those up to and including its begin mark, or those from its end mark on.
part() {
  awk -v begin="$begin" -v end="$end" -v wanted="$1" '
    index($0, end) == 1 { place = "after" }
    (place == "" ? "before" : place) == wanted
    index($0, begin) == 1 { place = "within" }' "$file"
}

code=0
"$@" >"$printed" 2>"$work/$name.errors" || code=$?
if [ "$code" != "$status" ]; then
  echo "$*"
  echo "exit status $code, expected $status; standard error:"
  tail -n 40 "$work/$name.errors"
  exit 1
fi

if [ -z "$section" ]; then
  if [ -f "$file" ]; then cp "$file" "$expected"; else : >"$expected"; fi
elif [ "$(grep -cF -e "$begin" -e "$end" "$file")" = 2 ]; then
  part within >"$expected"
else
  echo "$file: each of the lines '$begin -->' and '$end -->' must be there once"
  exit 1
fi
cmp -s "$expected" "$printed" && exit 0

if [ "${WIFI_MEND:-}" = 1 ]; then
  if [ -n "$section" ]; then
    { part before && cat "$printed" && part after; } >"$work/$name.mended"
  else
    cp "$printed" "$work/$name.mended"
  fi
  cat "$work/$name.mended" >"$file"
  echo "mended $file"
  exit 0
fi
echo "$*"
echo "printed something else than ${section:+the section '$section' of }$file holds:"
diff -u --label "expected: $file" --label "printed" "$expected" "$printed" | head -n 200 || true
echo "If the new text is right, mend the file with: ./test.sh --mend"
exit 1
