#!/usr/bin/env bash
# large_scenario.sh [ADAPTERS [NETWORKS]] > FILE: writes a scenario of 200 adapters that see 1,000
# networks each, for measurements:
#   /usr/bin/time -v wmihost --scenario FILE --format csv enum WiFi_AdapterCachedScanList > /dev/null
set -euo pipefail
awk -v adapters="${1:-200}" -v networks="${2:-1000}" 'BEGIN {
  printf "{\"adapters\": ["
  for (a = 0; a < adapters; ++a) {
    printf "%s\n{\"mac\": \"02:00:00:00:%02X:%02X\", \"cachedNetworks\": [", a ? "," : "", a / 256, a % 256
    for (n = 0; n < networks; ++n) {
      printf "%s\n{\"ssid\": \"Network %d\", \"mac\": \"02:01:%02X:%02X:%02X:%02X\", \"band\": \"802.11g\", ", \
             n ? "," : "", n, a / 256, a % 256, n / 256, n % 256
      printf "\"opMode\": \"Infrastructure\", \"rssi\": %d, \"encrypted\": true, \"auth\": [\"PSK\"], ", -30 - n % 70
      printf "\"unicast\": [\"AES-CCMP\"], \"multicast\": [\"TKIP\"], \"channel\": %d}", 1 + n % 11
    }
    printf "]}"
  }
  print "]}"
}'
