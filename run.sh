#!/usr/bin/env bash
# Builds what is missing and runs wmihost: ./run.sh [--windows] [ARGS…]
# Without ARGS it lists the adapters of the default scenario. --windows uses the DLL, under Wine.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$root/cmake/prepare.sh"

preset=native
if [ "${1:-}" = --windows ]; then
  preset=windows
  if reason=$(cannot_windows); then
    echo "./run.sh: --windows: $reason" >&2
    exit 1
  fi
  shift
fi
[ $# -gt 0 ] ||
  set -- enum WiFi_NetworkAdapter --fields DeviceID,WiFiAdapterType,Band,AssociationStatus,TxRate

install_packages "$preset"
build "$preset" wmihost WiFiAdapterProvider
if [ "$preset" = windows ]; then
  use_wine
  exec wine "$root/build/windows/bin/wmihost.exe" "$@"
fi
exec "$root/build/native/bin/wmihost" "$@"
