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
  integrations/prometheus/wifi-rules.yml integrations/icinga/wifi.conf \
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

# One thing broken at a time, and named.
expect_diagnosis() { # PART VERDICT TEXT: what wmihost doctor says of a part; TEXT is a pattern
  status=0
  # The system's own service is not what is tried here.
  wine ./wmihost.exe doctor --timeout 1 --format csv >doctor.csv 2>&1 || status=$?
  [ $status = 4 ] || fail "doctor answered $status, where the service has no schema"
  tr -d '\r' <doctor.csv | grep -qE "^$1,$2,.*$3" || fail "doctor does not say '$1 $2 $3': $(cat doctor.csv)"
}
expect_diagnosis registration good WiFiAdapterProvider.dll
grep -q '^module,good,.*has version [0-9.]*[.]' doctor.csv || fail "doctor knows no version: $(cat doctor.csv)"
grep -q '^signature,note,' doctor.csv || fail "doctor knows no signature: $(cat doctor.csv)"
grep -q '^libraries,note,.*simulated' doctor.csv || fail "doctor takes the simulator for the maker's libraries: $(cat doctor.csv)"
mv WiFiAdapterProvider.dll moved.dll
expect_diagnosis module problem 'WiFiAdapterProvider.dll is not there'
mv moved.dll WiFiAdapterProvider.dll
mv "$system/QuarnApi.dll" moved.dll
expect_diagnosis libraries problem 'QuarnApi.dll is missing'
cp "$system/TolvaApi.dll" "$system/QuarnApi.dll"
expect_diagnosis libraries problem 'QuarnApi.dll lacks [0-9]'
mv moved.dll "$system/QuarnApi.dll"
server="HKCR\\CLSID\\$class\\InprocServer32"
wine reg add "$server" /ve /d 'C:\gone.dll' /f >reg.txt 2>&1
expect_diagnosis registration problem 'C:.gone.dll, which is not there'
wine reg add "$server" /ve /d "$(windows_path "$PWD/simulator/QuarnApi.dll")" /f >reg.txt 2>&1
expect_diagnosis registration problem 'This program belongs to'
wine reg delete "$server" /f >reg.txt 2>&1
expect_diagnosis registration problem 'not registered'
type_commands Install || fail "a command to install answered $?"

type_commands Remove || fail "a command to remove answered $?"
expect_compiled uninstall.mof
[ -z "$(keys)" ] || fail "left behind: $(keys)"
expect_refused "not registered" ./wmihost.exe --registered
type_commands Remove || fail "the same command again answered $?"
wineserver -k 2>/dev/null || true
echo "the package's whole life went as promised"
