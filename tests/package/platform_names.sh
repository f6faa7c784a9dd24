#!/bin/sh
# platform_names.sh SOURCE BUILD TOOLS: compares the interface of the profile library with the platform's
# own ABI, as another compiler produces it: the listed names, our DLL with a library of that compiler,
# the simulated library with a client of that compiler. TOOLS is the prefix of the binary tools.
set -eu
source=$1
build=$2
tools=$3
list=$source/adapterapi/tolva_api.def
abi=$source/tests/package/platform_abi
work=$build/platform-names
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe=" WINEPREFIX="$build/wineprefix"
unset WIFI_SCENARIO WIFI_PROVIDER_TRACE

fail() {
  echo "platform_names: $*" >&2
  exit 1
}
compile() { # FILE OBJECT: for the platform's ABI, without any system header
  clang++ --target=x86_64-pc-windows-msvc -std=c++20 -O2 -ffreestanding -nostdinc -fno-exceptions \
    -fno-rtti -mno-stack-arg-probe -Wall -Wextra -Werror -I"$abi" -I"$source" -c "$abi/$1" -o "$work/$2"
}
define() { # NAME: a definition of the library with only the platform's names
  { echo "LIBRARY TolvaApi.dll"; echo EXPORTS; cat "$work/names"; } >"$work/$1"
}

rm -rf "$work"
mkdir -p "$work/libraries"
sed -n 's/.* == //p' "$list" | sort >"$work/names"
[ "$(wc -l <"$work/names")" = 17 ] || fail "$(wc -l <"$work/names") names are listed, not 17"

# The list equals the names that the compiler gives the members of the declared classes.
compile profile_library.cpp library.o
"${tools}nm" "$work/library.o" | awk '$2 == "T" && $3 ~ /^[?]/ { print "\"" $3 "\"" }' | sort >"$work/exported"
diff "$work/names" "$work/exported" || fail "the listed names (<) are not the compiler's (>)"

# Our DLL with a library of that compiler: profiles listed, fetched and applied.
define library.def
"${tools}gcc" -shared -nostdlib -e _DllMainCRTStartup "$work/library.o" "$work/library.def" \
  -o "$work/libraries/TolvaApi.dll"
cp "$build/bin/QuarnApi.dll" "$work/libraries/"
cat >"$work/session" <<'END'
enum WiFi_PreferredProfile --fields Name,SSID,MandatoryAp,OperationMode,Stealth,Encryption,Authentication,Type
get WiFi_PreferredProfile.Name="Home" --fields Name,Type
call WiFi_PreferredProfile.Name="Home" ApplyProfile AdapterID=7
get WiFi_NetworkAdapter.DeviceID="7" --fields LastAppliedProfile
END
wine "$build/bin/wmihost.exe" --libraries "$work/libraries" --format csv shell "$work/session" \
  >"$work/answers" || fail "the session ended with $?: $(cat "$work/answers")"
grep -v '^>' "$work/answers" | diff - /dev/fd/3 3<<'END' || fail "other answers (<) than the library's (>)"
Name,SSID,MandatoryAp,OperationMode,Stealth,Encryption,Authentication,Type
Office,network,00:11:22:33:44:55,BSS,false,CKIP 104-bit,Shared,user
Home,network,00:11:22:33:44:55,IBSS,false,CKIP 104-bit,Shared,user
Guest,network,00:11:22:33:44:55,BSS,true,CKIP 104-bit,Shared,postlogon
Name,Type
Home,user
ReturnValue
true
LastAppliedProfile
Applied at home
END

# The simulated library with a client of that compiler.
compile profile_client.cpp client.o
define client.def
"${tools}dlltool" -d "$work/client.def" -l "$work/libclient.a"
"${tools}gcc" -nostdlib -e mainCRTStartup "$work/client.o" "$work/libclient.a" -o "$build/bin/profile_client.exe"
wine "$build/bin/profile_client.exe" || fail "the client's step $? went wrong"
echo "both compilers agree on the profile library"
