#!/bin/sh
# check_module.sh SOURCE BINARIES TOOLS VERSION: checks the interface of the linked files: exports,
# imports by ordinal and by the platform's names, no separate runtime, protections, resources, version
# and symbols. TOOLS is the prefix of the binary tools.
set -eu
source=$1
binaries=$2
tools=$3
version=$4
ordinals=$source/tests/adapterapi/ordinals.txt
names=$source/adapterapi/tolva_api.def
module=$binaries/WiFiAdapterProvider.dll
failures=0

same() { # WHAT EXPECTED FOUND
  [ "$2" = "$3" ] && return
  printf '%s:\n  expected: %s\n  found:    %s\n' "$1" "$2" "$3"
  failures=$((failures + 1))
}
words() { tr -s ' \n' ' ' | sed 's/^ //;s/ $//'; }
tables() { perl "$source/tests/package/pe_tables.pl" "$1"; }
imported() { tables "$1" | awk '$1 == "import" { print toupper($2) }' | sort -u | words; }
exports() { tables "$1" | awk '$1 == "export" && NF == 3 { print $3 }' | sort | words; } # named exports only
imports_from() { # FILE LIBRARY: what FILE imports from LIBRARY, by number or name
  tables "$1" | awk -v library="$2" '$1 == "import" && $2 == library { sub("#", "", $3); print $3 }' | sort -n | words
}

listed=$(sed 's/ .*//' "$ordinals" | words)
same "exports of the module" "DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer" \
  "$(exports "$module")"
same "libraries that the module imports" \
  "ADVAPI32.DLL KERNEL32.DLL MSVCRT.DLL OLE32.DLL OLEAUT32.DLL QUARNAPI.DLL TOLVAAPI.DLL" \
  "$(imported "$module")"
same "operations that the module imports" "$listed" "$(imports_from "$module" QuarnApi.dll)"
same "number of operations" 68 "$(echo "$listed" | wc -w)"
same "names that QuarnApi exports" "SimulatorPlay SimulatorSet SimulatorTime" "$(exports "$binaries/QuarnApi.dll")"
same "ordinals that QuarnApi exports" "$listed 1001 1002 1003" \
  "$(tables "$binaries/QuarnApi.dll" | awk '$1 == "export" { print $2 }' | sort -n | words)"

profile_names=$(sed -n 's/.* == "\(.*\)"/\1/p' "$names" | sort | words)
same "profile library members that the module imports" "$profile_names" \
  "$(imports_from "$module" TolvaApi.dll | tr ' ' '\n' | sort | words)"
same "profile library members and hooks that TolvaApi exports" \
  "$(printf '%s\n' $profile_names SimulatorPlay SimulatorSet SimulatorTime | sort | words)" \
  "$(exports "$binaries/TolvaApi.dll" | tr ' ' '\n' | sort | words)"

for file in WiFiAdapterProvider.dll wmihost.exe QuarnApi.dll TolvaApi.dll; do
  same "protections of $file" "DYNAMIC_BASE HIGH_ENTROPY_VA NX_COMPAT" \
    "$(tables "$binaries/$file" | sed -n 's/^protection //p' | words)"
  same "runtime beside $file" "" "$(imported "$binaries/$file" | grep -oiE 'LIB[A-Z0-9_+-]*\.DLL' | words)"
done

# The module's own code calls the stack protector's check; symbols are in the file next to it.
check=$("${tools}nm" "$module.debug" | awk '$3 == "__stack_chk_fail" { sub("^0*", "", $1); print $1 }')
calls=$("${tools}objdump" -d --no-show-raw-insn "$module" | grep -c "call  *0x${check:-none}\b" || true)
[ "$calls" -ge 100 ] || same "calls of the stack protector in the module" "100 or more" "$calls"

# The load configuration's flags: only the module's folder (0x100) and the system's (0x800).
same "folders searched for imports" 0900 "$(tables "$module" | sed -n 's/^searches //p')"

resources=$(strings -e l "$module"; strings "$module")
for text in REGISTRY TYPELIB 'val ThreadingModel = s' 'ForceRemove {3B14BAD6-C364-4576-8271-39B5850ABDA8}' \
  'Unable to read thread token'; do # the last one is in the diagnostic function, which is never called
  echo "$resources" | grep -q "$text" || same "texts in the module" "$text" "none such"
done

# The same version everywhere, and simulated files identify themselves.
value_of() { strings -e l "$1" | grep -A1 -x "$2" | tail -n 1; } # FILE NAME: a text of the version resource
while read -r file product; do
  same "product of $file" "$product" "$(value_of "$binaries/$file" ProductName)"
  same "version of $file" "$version $version" \
    "$(value_of "$binaries/$file" FileVersion) $(value_of "$binaries/$file" ProductVersion)"
  same "name of $file" "$file" "$(value_of "$binaries/$file" OriginalFilename)"
  same "description of $file" "${product#WiFi Adapter Provider}" \
    "$(value_of "$binaries/$file" FileDescription | sed -n 's/^SIMULATED .*/ (SIMULATED)/p')"
done <<END
WiFiAdapterProvider.dll WiFi Adapter Provider
wmihost.exe WiFi Adapter Provider
QuarnApi.dll WiFi Adapter Provider (SIMULATED)
TolvaApi.dll WiFi Adapter Provider (SIMULATED)
END
grep -q "^## $version - [0-9-]*\$" "$source/CHANGELOG.md" || same "the change log" "## $version - DATE" "none such"

# The delivered files have no symbols; separate files with symbols map an address to a line.
for file in WiFiAdapterProvider.dll wmihost.exe QuarnApi.dll TolvaApi.dll; do
  same "symbols in $file" "" "$("${tools}nm" "$binaries/$file" 2>/dev/null | head -n 1)"
  same "symbols of $file" "$file.debug" "$(strings "$binaries/$file" | grep -x "$file.debug")"
done
[ "$failures" = 0 ] && echo "the linked files keep their promises"
exit "$failures"
