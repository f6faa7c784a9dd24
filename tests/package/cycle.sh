#!/bin/sh
# cycle.sh BUILD: the package's life cycle under Wine, from its archive in an empty folder: the same
# archive twice, registration without and with the maker's libraries, requests through COM, removal.
set -eu
build=$1
work=$build/package-cycle
test=cycle
. "$(dirname "$0")/installation.sh"

pack() {
  cmake --build "$build" --target package >"$work/package.log" 2>&1 || fail "no package: $(tail -n 5 "$work/package.log")"
}

rm -rf "$work"
mkdir -p "$work/first"

# The same sources give the same archives, even when the files are linked again.
pack
archives=$(cd "$build" && ls WiFiAdapterProvider-*.zip)
(cd "$build" && cp $archives "$work/first")
rm "$build/bin/WiFiAdapterProvider.dll" "$build/bin/wmihost.exe"
pack
for archive in $archives; do
  cmp "$build/$archive" "$work/first/$archive" || fail "two builds gave different archives"
done

cd "$work"
unzip -q "first/$(echo "$archives" | grep -v symbols)"
cd WiFiAdapterProvider-*
for file in WiFiAdapterProvider.dll wmihost.exe wifi_adapter_provider.mof uninstall.mof LICENSE.txt THIRD-PARTY-NOTICES.txt Steps.ps1 \
  Install-WiFiAdapterProvider.ps1 Uninstall-WiFiAdapterProvider.ps1 docs/administrator-guide.md docs/fleet-guide.md docs/result-codes.md \
  simulator/QuarnApi.dll simulator/TolvaApi.dll scenarios/laptop.json; do
  [ -f "$file" ] || fail "the package lacks $file"
done
[ ! -e QuarnApi.dll ] || fail "a simulated library lies beside the product"

start_wine

# Without the maker's libraries nothing is registered, and the exit status says so.
if wine regsvr32 /s WiFiAdapterProvider.dll; then fail "registered without the maker's libraries"; fi
[ -z "$(keys)$(library_key)" ] || fail "a failed registration left keys: $(keys)"
expect_refused "QuarnApi.dll is missing" ./wmihost.exe

# With the libraries, which the adapter's driver installs, the module registers exactly the script's
# keys.
cp simulator/*.dll "$system/"
wine regsvr32 /s WiFiAdapterProvider.dll || fail "regsvr32 answered $?"
wine regsvr32 /s WiFiAdapterProvider.dll || fail "a second regsvr32 answered $?"
expect_registered "$(windows_path "$PWD/WiFiAdapterProvider.dll")"

# Another process reaches it through COM.
expect_answers ./wmihost.exe simulator scenarios/laptop.json "enum WiFi_NetworkAdapter" dump "describe WiFi_NetworkAdapter"

wine regsvr32 /s /u WiFiAdapterProvider.dll || fail "regsvr32 /u answered $?"
[ -z "$(keys)$(library_key)" ] || fail "left behind: $(keys) $(library_key)"
expect_refused "not registered" ./wmihost.exe --registered
wine regsvr32 /s /u WiFiAdapterProvider.dll || fail "a second regsvr32 /u answered $?"
wineserver -k 2>/dev/null || true
echo "the package's whole life went as promised"
