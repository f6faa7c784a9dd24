#!/bin/sh
# check_module.sh OBJDUMP BINARIES OPERATIONS: what the linked files promise to others: exports,
# imports by ordinal, no runtime beside them, protections and resources.
set -eu
objdump=$1
binaries=$2
operations=$3
module=$binaries/WiFiAdapterProvider.dll
failures=0

same() { # WHAT EXPECTED FOUND
  [ "$2" = "$3" ] && return
  printf '%s:\n  expected: %s\n  found:    %s\n' "$1" "$2" "$3"
  failures=$((failures + 1))
}
words() { tr -s ' \n' ' ' | sed 's/^ //;s/ $//'; }
headers() { "$objdump" -p "$1"; }
imported() { headers "$1" | awk '/DLL Name:/ { print toupper($3) }' | sort | words; }
exports() { # the names, or for nameless ones nothing
  headers "$1" | awk '/\[Ordinal\/Name Pointer\] Table/ { on = 1; next } on && NF == 0 { on = 0 } on { print $NF }' | words
}
ordinals_from() { # FILE LIBRARY: what it imports of it, ordinals as decimal numbers, names as they are
  headers "$1" | awk -v library="$2" '
    /DLL Name:/ { on = ($3 == library); next }
    NF == 0 { on = 0 }
    on && NF == 4 && $1 != "vma:" { print $2, $3 }
    on && NF == 3 { print $2, $3 }' |
    while read -r number name; do
      [ "$name" = "<none>" ] && printf '%d\n' "0x$number" || echo "$name"
    done | sort -n | words
}

listed=$(sed -n 's/^QUARN_OPERATION(\([0-9]*\),.*/\1/p' "$operations" | sort -n | words)
same "exports of the module" "DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer" \
  "$(exports "$module")"
same "libraries that the module imports" \
  "ADVAPI32.DLL KERNEL32.DLL MSVCRT.DLL OLE32.DLL OLEAUT32.DLL QUARNAPI.DLL TOLVAAPI.DLL" \
  "$(imported "$module")"
same "operations that the module imports" "$listed" "$(ordinals_from "$module" QuarnApi.dll)"
same "number of operations" 68 "$(echo "$listed" | wc -w)"
same "names that QuarnApi exports" "" "$(exports "$binaries/QuarnApi.dll")"
same "ordinals that QuarnApi exports" "$listed" \
  "$(headers "$binaries/QuarnApi.dll" | sed -n '/Export Address Table -- Ordinal Base/,/^$/p' |
    sed -n 's/.*+base\[ *\([0-9]*\)\].*/\1/p' | sort -n | words)"

profile=$(ordinals_from "$module" TolvaApi.dll)
for symbol in _ZN11CProfileMgrC1Ev _ZN11CProfileMgrD1Ev _ZN11CProfileMgr15SetWiFiProviderEb \
  _ZN11CProfileMgr4OpenEm _ZN11CProfileMgr5CloseEv \
  _ZN11CProfileMgr24GetFirstPreferredProfileER17CPreferredProfilem \
  _ZN11CProfileMgr23GetNextPreferredProfileER17CPreferredProfilem \
  _ZN11CProfileMgr17GetProfileToApplyEPKcR18ORVEL_WLAN_PROFILEm \
  _ZN17CPreferredProfileC1Ev _ZN17CPreferredProfileD1Ev _ZNK17CPreferredProfile4NameEv \
  _ZNK17CPreferredProfile4SsidEv _ZNK17CPreferredProfile11MandatoryApEv \
  _ZNK17CPreferredProfile6OpModeEv _ZNK17CPreferredProfile7StealthEv \
  _ZNK17CPreferredProfile12WepAlgorithmEv _ZNK17CPreferredProfile8AuthModeEv; do
  case " $profile " in
    *" $symbol "*) ;;
    *) same "profile library import" "$symbol" "$profile" ;;
  esac
done
same "number of profile library imports" 17 "$(echo "$profile" | wc -w)"

for file in WiFiAdapterProvider.dll wmihost.exe QuarnApi.dll TolvaApi.dll; do
  same "protections of $file" "DYNAMIC_BASE HIGH_ENTROPY_VA NX_COMPAT" \
    "$(headers "$binaries/$file" | grep -oE 'HIGH_ENTROPY_VA|DYNAMIC_BASE|NX_COMPAT' | sort | words)"
  same "runtime beside $file" "" "$(imported "$binaries/$file" | grep -oiE 'LIB[A-Z0-9_+-]*\.DLL' | words)"
done

# The load configuration's flags: the module's folder (0x100) and the system's (0x800) only.
configuration=$(headers "$module" | awk '/Load Configuration Directory/ { print $3 }')
base=$(headers "$module" | awk '$1 == "ImageBase" { print $2 }')
start=$(printf '0x%x' $((0x$base + 0x$configuration + 0x4E)))
same "folders searched for imports" "0009" \
  "$("$objdump" -s --start-address="$start" --stop-address=$((start + 2)) "$module" | tail -n 1 | awk '{ print $2 }')"

resources=$(strings -e l "$module"; strings "$module")
for text in REGISTRY TYPELIB VS_VERSION_INFO FileDescription 'val ThreadingModel = s' \
  'ForceRemove {3B14BAD6-C364-4576-8271-39B5850ABDA8}'; do
  echo "$resources" | grep -q "$text" || same "resources" "$text" "none such"
done

[ "$failures" = 0 ] && echo "the linked files keep their promises"
exit "$failures"
