#!/bin/sh
# installer_cycle.sh BUILD TOOLS: the installer's life cycle under Wine: an older version, the upgrade,
# requests through COM, repair, failures that are rolled back, removal with and without the maker's
# libraries. TOOLS is the prefix of the binary tools.
set -eu
build=$1
tools=$2
work=$build/installer-cycle
test=installer_cycle
source=$(cd "$(dirname "$0")/../.." && pwd)
. "$source/tests/package/installation.sh"
folder="$drive/Program Files/WiFiAdapterProvider"
refused=1603
failed=1627 # Wine's code for a failed action; on Windows 1603

run() { # STATUS ARGUMENT…: msiexec's exit code, of which the shell gets eight bits
  expected=$(($1 & 255))
  shift
  : >"$drive/compiled.txt"
  status=0
  wine msiexec "$@" /qn || status=$?
  [ "$status" = "$expected" ] || fail "msiexec $* ended with $status, not $expected"
}
versions() { # the versions of the product's entries
  registered 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall' |
    grep -A30 'DisplayName *REG_SZ *WiFi Adapter Provider$' | sed -n 's/.*DisplayVersion *REG_SZ *//p'
}
expect_installed() { # VERSION BINARIES
  [ "$(versions)" = "$1" ] || fail "the product's entry says '$(versions)', not $1"
  expect_files "$2"
}
expect_files() { # BINARIES: they are installed and registered
  cmp "$folder/WiFiAdapterProvider.dll" "$1/WiFiAdapterProvider.dll"
  cmp "$folder/wmihost.exe" "$1/wmihost.exe"
  expect_registered 'C:\Program Files\WiFiAdapterProvider\WiFiAdapterProvider.dll'
}
expect_nothing_left() {
  [ ! -e "$folder" ] || fail "left behind: $(find "$folder")"
  [ -z "$(versions)$(keys)$(library_key)" ] || fail "left behind: $(versions) $(keys) $(library_key)"
}

rm -rf "$work"
mkdir -p "$work/old"
cd "$work"
msi=$(ls "$build"/WiFiAdapterProvider-*.msi)
version=${msi##*-}
version=${version%.msi}
simulator=$build/package-stage/WiFiAdapterProvider-$version/simulator
scenario=$source/simulator/scenarios/laptop.json

# An older version, signed: its files have version 0.9 in their version resources, after FEEF04BD.
for file in WiFiAdapterProvider.dll wmihost.exe QuarnApi.dll TolvaApi.dll; do
  perl -0777 -pe 's/(\xbd\x04\xef\xfe.{4}).{16}/$1 . pack("V4", 9, 0, 9, 0)/se' "$build/bin/$file" >"old/$file"
  cmp -s "$build/bin/$file" "old/$file" && fail "$file has no version"
  cp "$build/bin/$file.debug" old/
done
openssl req -x509 -newkey rsa:2048 -nodes -subj "/CN=Test of the package" -addext extendedKeyUsage=codeSigning \
  -days 2 -keyout key.pem -out certificate.pem 2>/dev/null
cmake -DSOURCE="$source" -DBINARIES="$work/old" -DREMOVAL="$build/schema/uninstall.mof" \
  -DSTAGE="$work/stage" -DOUTPUT="$work" -DVERSION=0.9.0 \
  "-DSIGN=-certs;$work/certificate.pem;-key;$work/key.pem" -P "$source/package/make_package.cmake" >package.log 2>&1 ||
  fail "no older package: $(tail -n 5 package.log)"
older=$work/WiFiAdapterProvider-0.9.0.msi
staged=$work/stage/WiFiAdapterProvider-0.9.0
for file in "$older" "$staged/WiFiAdapterProvider.dll" "$staged/wmihost.exe"; do
  osslsigncode verify -CAfile certificate.pem -TSA-CAfile certificate.pem -in "$file" >verify.log 2>&1 ||
    fail "the signature of $file does not hold: $(tail -n 5 verify.log)"
done

start_wine
use_compiler

# Without the maker's libraries: the installer does not need them, only loading the module does.
run 0 /i "$older"
expect_installed 0.9.0 "$staged"
expect_compiled wifi_adapter_provider.mof
expect_refused "QuarnApi.dll is missing" "$folder/wmihost.exe" --registered

# The upgrade removes the older version. Then the driver is installed, and clients find the provider.
run 0 /i "$msi"
expect_installed "$version" "$build/bin"
expect_compiled uninstall.mof wifi_adapter_provider.mof
cp "$simulator"/*.dll "$system/"
expect_answers "$folder/wmihost.exe" "$simulator" "$scenario" "enum WiFi_NetworkAdapter"

# Repair restores what is missing or wrong.
rm "$folder/wmihost.exe" "$folder/docs/wmihost.md"
wine reg delete "HKCR\\CLSID\\$class\\InprocServer32" /f >/dev/null
run 0 /i "$msi" REINSTALL=ALL REINSTALLMODE=amus AUTORECOVER=1
expect_installed "$version" "$build/bin"
expect_compiled -autorecover wifi_adapter_provider.mof
[ -f "$folder/docs/wmihost.md" ] || fail "the repair left a document out"

# An older version does not replace a newer one.
run "$refused" /i "$older"
expect_installed "$version" "$build/bin"

# A schema that cannot be removed stops the removal, and everything stays (except for the product's
# entry, which Wine does not restore); KEEPSCHEMA=1 skips the schema.
echo >"$drive/compiler-fails.txt"
run "$failed" /x "$msi"
expect_compiled uninstall.mof wifi_adapter_provider.mof
expect_files "$build/bin"
rm "$drive/compiler-fails.txt"
run 0 /i "$msi"
echo >"$drive/compiler-fails.txt"
run 0 /x "$msi" KEEPSCHEMA=1
expect_compiled
expect_nothing_left

# An installation whose schema cannot be compiled leaves nothing either.
run "$failed" /i "$msi"
expect_nothing_left
rm "$drive/compiler-fails.txt"

# Removal with the maker's libraries, and without them.
run 0 /i "$msi"
run 0 /x "$msi"
expect_compiled uninstall.mof
expect_nothing_left
run 0 /i "$msi"
rm "$system/QuarnApi.dll" "$system/TolvaApi.dll"
run 0 /x "$msi"
expect_nothing_left
wineserver -k || true
wineserver -w
left=$(find "$drive" -iname '*wifi*'; grep -aiE "WiFi ?Adapter ?Provider|$class|$library" "$WINEPREFIX"/*.reg || true)
[ -z "$left" ] || fail "left behind: $left"
echo "the installer's whole life went as promised"
