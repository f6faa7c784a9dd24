# Sourced by the tests that install under Wine. $build is the build's folder, $work the test's own, $test
# the test's name, $tools the prefix of the binary tools.
class='{3B14BAD6-C364-4576-8271-39B5850ABDA8}'
library='{A9A3ACD3-02FF-4C28-8353-F0FDFC66E01A}'
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe=" WINEPREFIX="$work/wineprefix"
unset WIFI_SCENARIO WIFI_PROVIDER_TRACE
drive=$WINEPREFIX/drive_c
system=$drive/windows/system32

fail() {
  echo "$test: $*" >&2
  exit 1
}
# Wine's helper processes keep the output of the program that starts them open, and end a minute after
# the last program. They are started here, without a pipe that the test's reader would wait for.
start_wine() {
  mkdir -p "$WINEPREFIX"
  wineserver -p60 || [ $? = 2 ] # where it runs already
  wine wineboot -i >"$work/wine.log" 2>&1 </dev/null || fail "Wine could not start: $(cat "$work/wine.log")"
}
# A program that records its arguments replaces the schema compiler.
use_compiler() {
  "${tools}gcc" -O1 "$(dirname "$0")/schema_compiler.c" -o "$system/wbem/mofcomp.exe"
}
expect_compiled() { # FILE…: what was compiled since the file was emptied
  found=$(tr -d '\r' <"$drive/compiled.txt" | tr '\n' ' ')
  [ "$found" = "$*${*:+ }" ] || fail "compiled was '$found', not '$*'"
}
windows_path() { wine winepath -w "$1" | tr -d '\r'; }
registered() { # KEY…: their texts in the registry, without the errors for those that do not exist
  printf '@reg query "%s" /s\r\n' "$@" >"$drive/query.bat"
  wine cmd /c 'C:\query.bat' </dev/null 2>/dev/null |
    iconv -f CP437 -t UTF-8 | tr -d '\r' | sed '/^$/d; /^reg: /d' # the console's code page
}
keys() { # KEY…: all keys that the module's script and its type library write, and these
  registered "HKCR\\CLSID\\$class" HKCR\\WiFiAdapterProvider.Instance HKCR\\WiFiAdapterProvider.Instance.1 \
    "HKCR\\TypeLib\\$library" "$@"
}
expect_registered() { # MODULE: only the registration names this file
  expected="HKEY_CLASSES_ROOT\\CLSID\\$class
    (Default)    REG_SZ    Instance Class
HKEY_CLASSES_ROOT\\CLSID\\$class\\InprocServer32
    (Default)    REG_SZ    $1
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
  found=$(keys)
  [ "$(printf '%s\n' "$found" | sed '/TypeLib/,$d')" = "$expected" ] || fail "the registry holds:
$found
instead of:
$expected"
  found=$(printf '%s\n' "$found" | sed -n '/TypeLib/,$p')
  case $found in
    *"WiFi Adapter Provider 1.0 Type Library"*"$1"*) ;;
    *) fail "no type library: $found" ;;
  esac
}
# wmihost also checks that the module can be unloaded after its last object and lock are released.
expect_answers() { # HOST LIBRARIES SCENARIO COMMAND…: COM gives the same answers as the module's file
  host=$1
  libraries=$2
  scenario=$3
  shift 3
  export SOURCE_DATE_EPOCH=0 # a dump contains its time
  for command; do
    wine "$host" --registered --scenario "$scenario" --format json $command >by_class.txt ||
      fail "--registered $command answered $?"
    wine "$host" --libraries "$libraries" --scenario "$scenario" --format json $command >by_file.txt ||
      fail "--libraries $command answered $?"
    cmp by_class.txt by_file.txt
    [ -s by_class.txt ] || fail "$command printed nothing"
  done
}
expect_refused() { # TEXT HOST OPTION…: a request fails with one line that says why
  text=$1
  shift
  if wine "$@" enum WiFi_NetworkAdapter >out.txt 2>err.txt; then fail "answered, instead of: $text"; fi
  [ "$(wc -l <err.txt)" = 1 ] && grep -qF "$text" err.txt || fail "not one line with '$text': $(cat err.txt)"
}
