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
folder="$drive/Netz für alle" # what the first command chooses
refused=1603
failed=1627 # Wine's code for a failed action; on Windows 1603
restart=3010

run() { # STATUS ARGUMENT…: msiexec's exit code, of which the shell gets eight bits
  expected=$(($1 & 255))
  shift
  : >"$drive/compiled.txt"
  status=0
  wine msiexec "$@" /qn || status=$?
  [ "$status" = "$expected" ] || fail "msiexec $* ended with $status, not $expected"
}
compiler_fails() { : >"$drive/compiler-fails.txt"; } # once
list='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall'
memory='HKLM\Software\WiFiAdapterProvider'
options() { # the remembered ones: administrators only, autorecover, folder, keep the schema
  registered "$memory" | sed -n 's/^ *[A-Za-z]* *REG_SZ *//p' | paste -sd '|'
}
value() { # NAME: that of the product's entry
  printf '%s\n' "$entries" | sed -n "s/^ *$1 *REG_[A-Z_]* *//p"
}
expect_installed() { # VERSION BINARIES
  entries=$(registered "$list" | grep -B30 -A30 'DisplayName *REG_SZ *WiFi Adapter Provider$') || fail "no entry"
  [ "$(value DisplayVersion)" = "$1" ] || fail "the product's entry says '$(value DisplayVersion)', not $1"
  expect_files "$2"
}
expect_files() { # BINARIES: they are installed and registered
  cmp "$folder/WiFiAdapterProvider.dll" "$1/WiFiAdapterProvider.dll"
  cmp "$folder/wmihost.exe" "$1/wmihost.exe"
  expect_registered "$(windows_path "$folder/WiFiAdapterProvider.dll")"
}
expect_nothing_left() {
  [ ! -e "$folder" ] || fail "left behind: $(find "$folder")"
  left=$(keys "$memory" "$list" | grep -iE "WiFi|$class|$library" || true)
  [ -z "$left" ] || fail "left behind: $left"
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
cmake -DSOURCE="$source" -DBINARIES="$work/old" \
  "-DSCHEMA=$build/schema/wifi_adapter_provider_admins_only.mof;$build/schema/uninstall.mof" \
  -DSTAGE="$work/stage" -DOUTPUT="$work" -DVERSION=0.9.0 -DOBJDUMP="${tools}objdump" \
  "-DSIGN=-certs;$work/certificate.pem;-key;$work/key.pem" -P "$source/package/make_package.cmake" >package.log 2>&1 ||
  fail "no older package: $(tail -n 5 package.log)"
older=$work/WiFiAdapterProvider-0.9.0.msi
staged=$work/stage/WiFiAdapterProvider-0.9.0
for file in "$older" "$staged/WiFiAdapterProvider.dll" "$staged/wmihost.exe" "$staged"/simulator/*.dll; do
  osslsigncode verify -CAfile certificate.pem -TSA-CAfile certificate.pem -in "$file" >verify.log 2>&1 ||
    fail "the signature of $file does not hold: $(tail -n 5 verify.log)"
done

start_wine
use_compiler

# Without the maker's libraries: the installer does not need them, only loading the module does.
run "$refused" /i "$older" ADMINSONLY=yes
run 0 /i "$older" "INSTALLDIR=C:\\Netz für alle" ADMINSONLY=1 AUTORECOVER=1
expect_installed 0.9.0 "$staged"
expect_compiled -autorecover wifi_adapter_provider_admins_only.mof
expect_refused "QuarnApi.dll is missing" "$folder/wmihost.exe" --registered

# The driver is installed, and a client has loaded the module when it is updated: it is replaced at the next
# restart. The update knows the options. (Wine does not tell the removal of the older version that it is
# part of an update, so the older schema is removed; see below.)
cp "$simulator"/*.dll "$system/"
mkfifo requests
wine "$build/bin/wmihost.exe" --registered --scenario "$scenario" shell <requests >shell.txt 2>&1 &
exec 3>requests
echo 'enum WiFi_NetworkAdapter' >&3
tries=0
until grep -q '^DeviceID' shell.txt; do
  [ $((tries += 1)) -lt 300 ] || fail "the client got no answer: $(cat shell.txt)"
  sleep 0.1
done
run "$restart" /i "$msi"
expect_compiled -autorecover uninstall.mof -autorecover wifi_adapter_provider_admins_only.mof
cmp "$folder/WiFiAdapterProvider.dll" "$staged/WiFiAdapterProvider.dll" || fail "a module in use was replaced"
exec 3>&-
wait
wine wineboot -r >"$work/wine.log" 2>&1
expect_installed "$version" "$build/bin"
[ "$(value InstallLocation)" = 'C:\Netz für alle\' ] || fail "the entry's folder is '$(value InstallLocation)'"
[ -n "$(value Contact)" ] || fail "the entry names no contact"
guide=$(value HelpLink)
[ -f "$drive/$(echo "${guide#file:///C:}" | tr '\\' /)" ] || fail "the entry's link is '$guide'"
expect_answers "$folder/wmihost.exe" "$simulator" "$scenario" "enum WiFi_NetworkAdapter"

# Repair restores what is missing or wrong; what its command chooses lasts.
rm "$folder/wmihost.exe" "$folder/docs/wmihost.md"
wine reg delete "HKCR\\CLSID\\$class\\InprocServer32" /f >/dev/null
run 0 /i "$msi" REINSTALL=ALL REINSTALLMODE=amus ADMINSONLY=0 KEEPSCHEMA=1
expect_installed "$version" "$build/bin"
expect_compiled -autorecover wifi_adapter_provider.mof
[ -f "$folder/docs/wmihost.md" ] || fail "the repair left a document out"
[ "$(options)" = '0|1|C:\Netz für alle\|1' ] || fail "remembered is $(options)"

# An older version does not replace a newer one.
run "$refused" /i "$older"
expect_installed "$version" "$build/bin"

# Removal as from the system's list, without options: the schema is kept, and no service needed.
compiler_fails
run 0 /x "$(value UninstallString | sed 's/.*\({.*}\).*/\1/')"
expect_compiled
expect_nothing_left
rm "$drive/compiler-fails.txt"

# An installation whose schema cannot be compiled leaves nothing either.
folder="$drive/Program Files/WiFiAdapterProvider"
compiler_fails
run "$failed" /i "$msi"
expect_nothing_left

# A removal that is part of an update leaves the schema to the newer version.
run 0 /i "$msi"
run 0 /x "$msi" UPGRADINGPRODUCTCODE="{00000000-0000-0000-0000-000000000001}"
expect_compiled
expect_nothing_left

# Another copy of the module that was registered since stays registered, with its schema.
run 0 /i "$msi"
wine regsvr32 /s "$simulator/../WiFiAdapterProvider.dll"
run 0 /x "$msi"
expect_compiled
expect_registered "$(windows_path "$simulator/../WiFiAdapterProvider.dll")"
[ ! -e "$folder" ] && [ -z "$(options)" ] || fail "left behind: $folder $(options)"

# A schema that cannot be removed stops the removal, and everything stays (except for the product's
# entry, which Wine does not restore).
run 0 /i "$msi"
compiler_fails
run "$failed" /x "$msi"
expect_compiled uninstall.mof wifi_adapter_provider.mof
expect_files "$build/bin"

# Removal without the maker's libraries.
rm "$system/QuarnApi.dll" "$system/TolvaApi.dll"
run 0 /x "$msi"
expect_compiled uninstall.mof
expect_nothing_left
wineserver -k || true
wineserver -w
left=$(find "$drive" -iname '*wifi*'; grep -aiE "WiFi ?Adapter ?Provider|$class|$library" "$WINEPREFIX"/*.reg || true)
[ -z "$left" ] || fail "left behind: $left"
echo "the installer's whole life went as promised"
