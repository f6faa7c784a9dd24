#!/bin/sh
# cycle.sh BUILD: the package's whole life under Wine, from its archive in an empty folder: the same
# archive twice, registration without and with the maker's libraries, requests through COM, removal.
set -eu
build=$1
work=$build/package-cycle
class='{3B14BAD6-C364-4576-8271-39B5850ABDA8}'
library='{A9A3ACD3-02FF-4C28-8353-F0FDFC66E01A}'
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" WINEPREFIX="$work/wineprefix"
unset WIFI_SCENARIO WIFI_PROVIDER_TRACE

fail() {
  echo "cycle: $*" >&2
  exit 1
}
pack() {
  cmake --build "$build" --target package >"$work/package.log" 2>&1 || fail "no package: $(tail -n 5 "$work/package.log")"
}
registered() { # KEY: the registry's text of it, nothing when it is not there
  text=$(wine reg query "HKCR\\$1" /s 2>/dev/null) || return 0
  printf '%s\n' "$text" | tr -d '\r' | sed '/^$/d'
}
keys() { # everything that the module's script writes
  registered "CLSID\\$class"
  registered WiFiAdapterProvider.Instance
  registered WiFiAdapterProvider.Instance.1
}
library_key() { registered "TypeLib\\$library"; }

rm -rf "$work"
mkdir -p "$work"

# The same sources give the same archive, also when the module is linked anew; the two that are linked
# differ in their links to the debug files.
contents() { unzip -v "$1" | awk '{ print $7, $8 }' | grep -v -e '/WiFiAdapterProvider.dll$' -e '/wmihost.exe$'; }
pack
archive=$(ls "$build"/WiFiAdapterProvider-*.zip | grep -v symbols)
cp "$archive" "$work/first.zip"
rm "$build/bin/WiFiAdapterProvider.dll" "$build/bin/wmihost.exe"
pack
[ "$(contents "$archive")" = "$(contents "$work/first.zip")" ] || fail "two builds gave different archives"

cd "$work"
unzip -q "$archive"
cd WiFiAdapterProvider-*
for file in WiFiAdapterProvider.dll wmihost.exe wifi_adapter_provider.mof uninstall.mof LICENSE.txt THIRD-PARTY-NOTICES.txt Steps.ps1 \
  Install-WiFiAdapterProvider.ps1 Uninstall-WiFiAdapterProvider.ps1 docs/administrator-guide.md docs/result-codes.md \
  simulator/QuarnApi.dll simulator/TolvaApi.dll scenarios/laptop.json; do
  [ -f "$file" ] || fail "the package lacks $file"
done
[ ! -e QuarnApi.dll ] || fail "a simulated library lies beside the product"

wine wineboot -i >/dev/null 2>&1
system=$WINEPREFIX/drive_c/windows/system32

# Without the maker's libraries nothing is registered, and the exit status says so.
if wine regsvr32 /s WiFiAdapterProvider.dll; then fail "registered without the maker's libraries"; fi
[ -z "$(keys)$(library_key)" ] || fail "a failed registration left keys: $(keys)"
if wine ./wmihost.exe enum WiFi_NetworkAdapter >out.txt 2>err.txt; then
  fail "wmihost ran without the maker's libraries"
fi
[ "$(wc -l <err.txt)" = 1 ] || fail "not one line for a missing library: $(cat err.txt)"

# With them, as the adapter's driver brings them, the module registers: exactly the script's keys.
cp simulator/*.dll "$system/"
wine regsvr32 /s WiFiAdapterProvider.dll || fail "regsvr32 answered $?"
wine regsvr32 /s WiFiAdapterProvider.dll || fail "a second regsvr32 answered $?"
module=$(winepath -w "$PWD/WiFiAdapterProvider.dll" 2>/dev/null || wine winepath -w "$PWD/WiFiAdapterProvider.dll" | tr -d '\r')
expected="HKEY_CLASSES_ROOT\\CLSID\\$class
    (Default)    REG_SZ    Instance Class
HKEY_CLASSES_ROOT\\CLSID\\$class\\InprocServer32
    (Default)    REG_SZ    $module
    ThreadingModel    REG_SZ    apartment
HKEY_CLASSES_ROOT\\CLSID\\$class\\ProgID
    (Default)    REG_SZ    WiFiAdapterProvider.Instance.1
HKEY_CLASSES_ROOT\\CLSID\\$class\\VersionIndependentProgID
    (Default)    REG_SZ    WiFiAdapterProvider.Instance
HKEY_CLASSES_ROOT\\WiFiAdapterProvider.Instance
    (Default)    REG_SZ    Instance Class
HKEY_CLASSES_ROOT\\WiFiAdapterProvider.Instance\\CLSID
    (Default)    REG_SZ    $class
HKEY_CLASSES_ROOT\\WiFiAdapterProvider.Instance.1
    (Default)    REG_SZ    Instance Class
HKEY_CLASSES_ROOT\\WiFiAdapterProvider.Instance.1\\CLSID
    (Default)    REG_SZ    $class"
[ "$(keys)" = "$expected" ] || fail "the registry holds:
$(keys)
instead of:
$expected"
library_key | grep -q "WiFi Adapter Provider 1.0 Type Library" || fail "no type library: $(library_key)"

# Another process reaches it through COM; its answers are those of the module reached by file.
# wmihost also holds the module to its unloading once the last object and lock are gone.
for command in "enum WiFi_NetworkAdapter" "dump" "describe WiFi_NetworkAdapter"; do
  wine ./wmihost.exe --registered --scenario scenarios/laptop.json --format json $command >by_class.txt ||
    fail "--registered $command answered $?"
  wine ./wmihost.exe --libraries simulator --scenario scenarios/laptop.json --format json $command >by_file.txt ||
    fail "--libraries $command answered $?"
  cmp by_class.txt by_file.txt
  [ -s by_class.txt ] || fail "$command printed nothing"
done

wine regsvr32 /s /u WiFiAdapterProvider.dll || fail "regsvr32 /u answered $?"
[ -z "$(keys)$(library_key)" ] || fail "left behind: $(keys) $(library_key)"
if wine ./wmihost.exe --registered enum WiFi_NetworkAdapter >out.txt 2>err.txt; then
  fail "reached after its unregistration"
fi
[ "$(wc -l <err.txt)" = 1 ] || fail "not one line for a class that is not registered: $(cat err.txt)"
wine regsvr32 /s /u WiFiAdapterProvider.dll || fail "a second regsvr32 /u answered $?"
wineserver -k 2>/dev/null || true
echo "the package's whole life went as promised"
