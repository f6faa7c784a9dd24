#!/bin/sh
# crash_address.sh SOURCE BUILD TOOLS: the debug file next to the stripped module maps the address of a
# crash to its line, without a path of the machine that built it; and an overrun on the stack ends the
# process. TOOLS is the prefix of the binary tools.
set -eu
source=$1
build=$2
tools=$3
work=$build/crash-address
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe=" WINEPREFIX="$build/wineprefix"

fail() {
  echo "crash_address: $*" >&2
  exit 1
}

mkdir -p "$work"
"${tools}gcc" -O1 -Wall -Werror "$source/tests/package/crash.c" -o "$work/crash.exe" -luuid
"${tools}g++" -O1 -fstack-protector-strong -static -I"$source" -std=c++20 \
  "$source/tests/package/overrun.cpp" \
  "$source/platform/stack_protector_mingw.cpp" -o "$work/overrun.exe"
wine "$work/overrun.exe" 8 || fail "a buffer that was filled ended with $?"
status=0
wine "$work/overrun.exe" 40 || status=$?
[ "$status" = $((0xC0000409 & 255)) ] || fail "an overrun ended with $status"
cd "$build/bin"
offset=$(wine "$work/crash.exe" WiFiAdapterProvider.dll) || fail "the module did not crash: $?"
offset=$(echo "$offset" | tr -d '\r')
base=$("${tools}objdump" -p "$build/bin/WiFiAdapterProvider.dll" | awk '$1 == "ImageBase" { print $2 }')
lines=$("${tools}addr2line" -i -e "$build/bin/WiFiAdapterProvider.dll.debug" "$(printf '0x%x' $((0x$base + offset)))")
# The innermost line of this project's sources, and its text.
place=$(echo "$lines" | sed -n 's|^/wifi-adapter-provider/\(.*\):\([0-9]*\).*|\1 \2|p' | head -n 1)
[ -n "$place" ] || fail "offset $offset is '$lines'"
line=$(sed -n "${place#* }p" "$source/${place% *}")
case $line in
  *classId*) echo "offset $offset is ${place% *}:${place#* }:$line" ;;
  *) fail "offset $offset is '$lines', whose text is '$line'" ;;
esac
