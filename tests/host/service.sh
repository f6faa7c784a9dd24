#!/usr/bin/env bash
# service.sh PROGRAM…: wmihost, which is PROGRAM, reads from the system's own management service.
set -uo pipefail
program=("$@")
bad=0
expect() {  # STATUS PATTERN ARGUMENT…: exit status and content of output or messages
  local status=$1 pattern=$2 got=0 shown
  shift 2
  shown=$("${program[@]}" --service "$@" 2>&1 </dev/null | tr -d '\r'; exit "${PIPESTATUS[0]}") || got=$?
  [ "$got" = "$status" ] && grep -qE -- "$pattern" <<<"$shown" && return
  echo "--service $*: ends with $got, not $status, and shows:" && head -n 12 <<<"$shown"
  bad=1
}
expect 0 '"Manufacturer": "' enum Win32_BIOS --format json
expect 0 $'\033\\[' enum Win32_BIOS --color always
expect 0 '^Name,Manufacturer$' enum Win32_BIOS --format csv --fields Name,Manufacturer
expect 0 '"DeviceId": "C:"' get 'Win32_LogicalDisk.DeviceID="C:"' --format json
expect 0 '^C: ' query "SELECT DeviceID, FileSystem FROM Win32_LogicalDisk WHERE DeviceID = 'C:'" --fields DeviceID,FileSystem
expect 0 '^Manufacturer +string' describe Win32_BIOS
expect 0 '"ReturnValue": 0' call StdRegProv EnumKey hDefKey=-2147483646 sSubKeyName=Software --format json
expect 0 '"Manufacturer": "' --timeout 0 enum Win32_BIOS --format json
expect 2 'sSubKey: ' call StdRegProv EnumKey sSubKey=Software
expect 3 "WBEM_E_NOT_FOUND" get Win32_Nothing
expect 4 'wmihost: root.nowhere: ' 'root\nowhere' enum Win32_BIOS
expect 4 'wmihost: ..nowhere.root.cimv2: WBEM_E_TRANSPORT_FAILURE' '\\nowhere\root\cimv2' enum Win32_BIOS
expect 2 'it does nothing for shell' shell
exit "$bad"
