#!/bin/sh
# crash_address.sh SOURCE BUILD TOOLS: the debug file next to the stripped module maps the address of a
# crash to its line, without a path of the machine that built it. TOOLS is the prefix of the binary
# tools.
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
