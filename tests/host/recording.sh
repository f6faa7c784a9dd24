#!/usr/bin/env bash
# recording.sh PROGRAM…: records a machine that changes, makes a scenario of the recording and plays
# that: it shows the same at the same times. Then records until there is no room. No step waits.
set -euo pipefail
program=("$@")
wmihost() { "${program[@]}" "$@" </dev/null; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
unset WIFI_SCENARIO WIFI_PROVIDER_TRACE
fail() { echo "$*" && exit 1; }

cat >walk.json <<'EOF'
{
  "adapters": [{"mac": "00:1A:2B:3C:4D:5E", "associationStatus": "Associated",
                "association": {"associated": true, "ssid": "Hall", "bssid": "02:00:00:00:00:0A"},
                "lastAppliedProfile": "Work", "tcpip": {"domain": "work"}, "versions": {"driver": "5"},
                "tcpipv6": {"ipAddresses": ["fe80::1"]}, "ccxPowerLevels": {"levels": [1, 2]},
                "availableNetworks": [{"ssid": "Hall", "mac": "02:00:00:00:00:0A", "rssi": -40}],
                "cachedNetworks": [{"ssid": "Hall", "mac": "02:00:00:00:00:0A", "rssi": -40}]}],
  "faults": [{"operation": "GetAssociationInfo", "status": -1, "from": "65s", "until": "70s"},
             {"operation": "GetBand", "status": -1, "from": "40s", "until": "50s"}],
  "timeline": {"start": "2026-11-24T09:00:00Z", "steps": [
    {"at": 0, "set": {"adapters/0/signal/rssi": -40, "adapters/0/associationStats/roamCount": 0}},
    {"at": 30, "ramp": {"adapters/0/signal/rssi": -80}},
    {"at": 30, "set": {"adapters/0/association/bssid": "02:00:00:00:00:0B",
                       "adapters/0/associationStats/roamCount": 1,
                       "adapters/0/availableNetworks": [
                         {"ssid": "Yard", "mac": "02:00:00:00:00:0B", "rssi": -80},
                         {"ssid": "Hall", "mac": "02:00:00:00:00:0A", "rssi": -85}]}},
    {"at": 60, "set": {"adapters/0/radioState": false, "adapters/0/lastAppliedProfile": "",
                       "adapters/0/tcpip/domain": "", "adapters/0/versions/driver": "",
                       "adapters/0/tcpipv6/ipAddresses": [], "adapters/0/tcpipv6/addressCount": 0,
                       "adapters/0/cachedNetworks": [],
                       "adapters/0/ccxPowerLevels": {"levels": [], "count": 0}}}]}
}
EOF
record() { wmihost --scenario "$1" --speed 0 record "$2" --every 5s --for 90s; }
record walk.json first.jsonl
[ "$(wc -l <first.jsonl)" = 18 ] || fail "there are $(wc -l <first.jsonl) samples"
grep -q '^{"time":"2026-11-24T09:00:30.000Z","patch":\[.*02:00:00:00:00:0B' first.jsonl ||
  fail "the roam is not in the sample of its time"
wmihost scenario --from-recording first.jsonl >replay.json 2>remarks || fail "$(cat remarks)"
record replay.json second.jsonl
# Their scenarios have other names, and their times another beginning.
shown() { sed -e 's/^{"time":"[^"]*"//' -e 's/"Source":{[^}]*}//' "$1"; }
diff <(shown first.jsonl) <(shown second.jsonl) || fail "the replay shows something else"

# A disk without room: what was written stays.
if (ulimit -f 8) 2>/dev/null && [ "${#program[@]}" = 1 ]; then
  status=0
  (trap '' XFSZ && ulimit -f 8 && wmihost --scenario walk.json --speed 0 record full.jsonl --for 1d) \
    2>said || status=$?
  [ "$status" = 6 ] || fail "a full disk ends with $status: $(cat said)"
  grep -q 'full.jsonl: it cannot be written further' said || fail "$(cat said)"
  [ "$(tail -c 1 full.jsonl | od -An -c | tr -d ' ')" = '\n' ] || fail "the last line is cut"
  wmihost scenario --from-recording full.jsonl >/dev/null 2>remarks || fail "$(cat remarks)"
  ! grep -q 'no samples' remarks || fail "a line is broken"
fi
