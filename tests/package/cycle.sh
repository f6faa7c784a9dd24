#!/bin/sh
# cycle.sh BUILD TOOLS: the package's life cycle under Wine, from its archive in an empty folder: the same
# archive twice, and the commands of its README without and with the maker's libraries; requests through
# COM. TOOLS is the prefix of the binary tools.
set -eu
build=$1
tools=$2
work=$build/package-cycle
test=cycle
source=$(cd "$(dirname "$0")/../.." && pwd)
. "$source/tests/package/installation.sh"

pack() {
  cmake --build "$build" --target package >"$work/package.log" 2>&1 || fail "no package: $(tail -n 5 "$work/package.log")"
}
type_commands() { # SECTION: the README's commands, until one fails
  awk -v section="$1" '/^[A-Z][a-z]*$/ { on = $0 == section } on && /^    / { print }' README.txt >commands.txt
  [ "$(wc -l <commands.txt)" = 2 ] || fail "not two commands to $1: $(cat commands.txt)"
  : >"$drive/compiled.txt"
  while read -r command; do
    wine $command </dev/null || return
  done <commands.txt
}

rm -rf "$work"
mkdir -p "$work/first"

# The same sources give the same archives and installer, even when the files are linked again.
pack
archives=$(cd "$build" && ls WiFiAdapterProvider-*.zip WiFiAdapterProvider-*.msi WiFiAdapterProvider-*.cdx.json)
(cd "$build" && cp $archives "$work/first")
rm "$build/bin/WiFiAdapterProvider.dll" "$build/bin/wmihost.exe"
pack
for archive in $archives; do
  cmp "$build/$archive" "$work/first/$archive" || fail "two builds gave different files: $archive"
done

cd "$work"
unzip -q "first/$(echo "$archives" | grep -v "symbols\|msi\|json")"
cd WiFiAdapterProvider-*
for file in WiFiAdapterProvider.dll wmihost.exe wifi_adapter_provider.mof uninstall.mof LICENSE.txt THIRD-PARTY-NOTICES.txt README.txt \
  docs/administrator-guide.md docs/fleet-guide.md docs/result-codes.md \
  simulator/QuarnApi.dll simulator/TolvaApi.dll scenarios/laptop.json; do
  [ -f "$file" ] || fail "the package lacks $file"
done
[ ! -e QuarnApi.dll ] || fail "a simulated library lies beside the product"
(cd "$build" && sha256sum --quiet -c SHA256SUMS) || fail "SHA256SUMS is wrong"
cmake -DPACKAGE="$build/${PWD##*/}" -DFOLDER="$PWD" -DTABLES="$source/tests/package/pe_tables.pl" \
  -DCOMPILER="${tools}g++-posix" -P "$source/tests/package/check_bom.cmake" || fail "the bill of materials is wrong"

start_wine
use_compiler

# Without the maker's libraries nothing is registered, and the exit status says so.
if type_commands Install; then fail "registered without the maker's libraries"; fi
[ -z "$(keys)" ] || fail "a failed registration left keys: $(keys)"
expect_refused "QuarnApi.dll is missing" ./wmihost.exe

# With the libraries, which the adapter's driver installs, the module registers exactly the keys of its
# registration script.
cp simulator/*.dll "$system/"
type_commands Install || fail "a command to install answered $?"
type_commands Install || fail "the same command again answered $?"
expect_compiled wifi_adapter_provider.mof
expect_registered "$(windows_path "$PWD/WiFiAdapterProvider.dll")"

# Another process reaches it through COM.
expect_answers ./wmihost.exe simulator scenarios/laptop.json "enum WiFi_NetworkAdapter" dump "describe WiFi_NetworkAdapter"

type_commands Remove || fail "a command to remove answered $?"
expect_compiled uninstall.mof
[ -z "$(keys)" ] || fail "left behind: $(keys)"
expect_refused "not registered" ./wmihost.exe --registered
type_commands Remove || fail "the same command again answered $?"
wineserver -k 2>/dev/null || true
echo "the package's whole life went as promised"
