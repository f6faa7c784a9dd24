#!/usr/bin/env bash
# fleet.sh WMIHOST WORK: the metrics of each scenario, the rules, and a fleet of 500 simulated machines that
# a Prometheus reads over HTTP, on the loopback interface only.
set -euo pipefail
wmihost=$1 work=$2
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
scenarios=$root/simulator/scenarios
rm -rf "$work"
mkdir -p "$work/www/metrics"
cd "$work"
unset WIFI_SCENARIO WIFI_PROVIDER_TRACE
fail() { echo "fleet: $*" >&2 && exit 1; }

for scenario in "$scenarios"/*.json; do
  # The hostile machine ends with 3: not all of its lists can be read.
  "$wmihost" --scenario "$scenario" metrics >one.prom 2>errors.txt || [ $? = 3 ] || fail "$scenario: $(cat errors.txt)"
  promtool check metrics <one.prom || fail "$scenario: metrics that are not accepted"
  ! grep -qE '^[a-z_]+({.*})? [^ ]+ [^ ]+$' one.prom || fail "$scenario: a time stamp"
done
"$here/check_rules.sh" "$work/rules"
"$here/check_icinga.sh"

# Machine N has one of four scenarios, and from 1 to 40 a weak signal, 41 to 60 an old driver, 61 to 70 the
# radio off, 71 an open network.
machines=500
awk -v machines=$machines -v folder="$scenarios" 'BEGIN {
  split("laptop campus laptop laptop", scenarios)
  for (machine = 1; machine <= machines; ++machine) {
    print "reload " folder "/" scenarios[machine % 4 + 1] ".json"
    signal = machine <= 40 ? -80 - machine % 10 : -40 - machine % 30
    print "set adapters/0/associationStats/rssi=" signal
    print "set adapters/0/associationStats/roamCount=" machine
    if (machine > 40 && machine <= 60) print "set adapters/0/versions/driver=5.1.9." machine
    if (machine > 60 && machine <= 70) print "set adapters/0/radioState=false"
    print "metrics www/metrics/m" machine
  }
}' >machines.txt
"$wmihost" --scenario "$scenarios/laptop.json" shell machines.txt >shell.txt 2>&1 || fail "$(tail -n 3 shell.txt)"
[ "$(find www/metrics -type f | wc -l)" = $machines ] || fail "not every machine wrote its metrics"

# The rules without their waiting times, and machine mN as target of the path metrics/mN.
sed -E 's/^( +for:).*/\1 0s/' "$root/integrations/prometheus/wifi-rules.yml" >wifi-rules.yml
awk -v machines=$machines 'BEGIN {
  for (machine = 1; machine <= machines; ++machine) {
    printf "%s{\"targets\": [\"127.0.0.1:PORT\"], \"labels\": {\"instance\": \"m%d\", \"__metrics_path__\": \"/metrics/m%d\"}}",
           machine == 1 ? "[" : ",\n ", machine, machine
  }
  print "]"
}' >machines.in
cat >prometheus.yml <<'END'
global: {scrape_interval: 3s, scrape_timeout: 3s, evaluation_interval: 2s}
rule_files: [wifi-rules.yml]
scrape_configs:
  - job_name: wifi
    file_sd_configs:
      - files: [machines.json]
END

running=()
finish() {
  kill "${running[@]}" 2>/dev/null || true
  wait
}
trap finish EXIT
port=$((20000 + RANDOM % 20000))
python3 -m http.server --bind 127.0.0.1 --directory www $port >server.txt 2>&1 &
running+=($!)
sed "s/PORT/$port/" machines.in >machines.json
address=127.0.0.1:$((port + 1))
prometheus --config.file=prometheus.yml --storage.tsdb.path=data --web.listen-address=$address >prometheus.txt 2>&1 &
server=$!
running+=($server)

ask() { promtool query instant "http://$address" "$1" 2>&1 | sed 's/ @\[.*//' | sort; }
expect() { # QUERY RESULT: within a minute
  local shown end=$((SECONDS + 60))
  until shown=$(ask "$1") && [ "$shown" = "$2" ]; do
    [ $SECONDS -lt $end ] || fail "$1 gives
$shown
instead of
$2
$(tail -n 2 prometheus.txt)"
    sleep 1
  done
}
firing() { echo "count by (alertname) (ALERTS{alertstate=\"firing\"$1})"; }
roams='wifi_roams_total{instance="m200",reason="weak_signal"}'

expect 'count(up == 1)' "{} => $machines"
expect 'count(wifi_signal_dbm <= -75)' '{} => 40'
expect 'count(count by (driver) (wifi_adapter_info))' '{} => 21'
expect "$(firing '')" '{alertname="WifiDriverOld"} => 20
{alertname="WifiRadioOff"} => 10
{alertname="WifiSignalWeak"} => 40'

# A machine dies and comes back; another one's adapter is gone, and its counter wraps.
mv www/metrics/m100 m100
sed -i -E 's/^(wifi_roams_total.*weak_signal.*) .*/\1 4294967290/' www/metrics/m200
expect "sum($roams) == bool 4294967290" '{} => 1'
expect "$(firing ',instance="m100"')" '{alertname="WifiProviderSilent"} => 1'
sed -i -E 's/^(wifi_roams_total.*weak_signal.*) .*/\1 3/; s/^wifi_adapters .*/wifi_adapters 0/' www/metrics/m200
mv m100 www/metrics/m100
expect "$(firing ',instance="m100"')" ''
expect "$(firing ',instance="m200",alertname="WifiAdapterGone"')" '{alertname="WifiAdapterGone"} => 1'
expect "increase(${roams}[1m]) < bool 1000" '{adapter="9", instance="m200", job="wifi", reason="weak_signal"} => 1'

# Every query of the dashboard gives something.
python3 - "$root/integrations/prometheus/dashboard.json" >queries.txt <<'END'
import json, sys
for panel in json.load(open(sys.argv[1]))["panels"]:
    for target in panel["targets"]:
        print(target["expr"])
END
while IFS= read -r query; do
  [[ $(ask "$query") == *' => '* ]] || fail "the dashboard's $query gives: $(ask "$query")"
done <queries.txt

series=$(ask 'count({__name__=~".+"})' | sed 's/.* //')
memory=$(awk '$1 == "VmRSS:" { print int($2 / 1024) }' "/proc/$server/status")
started=$(date +%s%N)
ask 'count by (driver) (wifi_adapter_info)' >/dev/null
echo "$machines machines: $series series, $memory MB, $((($(date +%s%N) - started) / 1000000)) ms for a query"
