#!/usr/bin/env bash
# Icinga accepts the check, and makes a service of it for a machine with an agent.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# Icinga may run as another user.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
chmod 777 "$work"
cp "$here/icinga.conf" "$here/../../integrations/icinga/wifi.conf" "$work"
cd "$work"
if ! icinga2 daemon -C -c "$PWD/icinga.conf" -D DataDir="$PWD" -D CacheDir="$PWD" >icinga.txt 2>&1 ||
  ! grep -q 'Instantiated 1 Service\.' icinga.txt; then
  cat icinga.txt
  exit 1
fi
