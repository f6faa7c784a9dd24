#!/usr/bin/env bash
# report_browser_test.sh WMIHOST SCENARIO DRIVER WORK: opens the report of SCENARIO in a browser; the
# page DRIVER sorts and filters it, measures it and two others, and reports what it saw.
set -euo pipefail
wmihost=$1 scenario=$2 driver=$3 work=$4

browser=$(command -v chromium || command -v chromium-browser) ||
  { echo "chromium is missing: ./test.sh native installs it" >&2; exit 1; }
rm -rf "$work" && mkdir -p "$work"
"$wmihost" --scenario "$scenario" report >"$work/report.html"
for machine in campus test-bench; do
  "$wmihost" --scenario "$(dirname "$0")/../../simulator/scenarios/$machine.json" report >"$work/$machine.html"
done
cp "$driver" "$work/index.html"
"$browser" --headless --no-sandbox --disable-gpu --disable-background-networking --no-first-run \
  --user-data-dir="$work/profile" --allow-file-access-from-files --virtual-time-budget=10000 \
  --dump-dom "file://$work/index.html" >"$work/seen.html" 2>"$work/browser.log"
sed -n '/<pre id="outcome">/,/<script>/p' "$work/seen.html" | sed 's/<[^>]*>//g'
grep -qE '<pre id="outcome">passed [0-9]{4,} checks</pre>' "$work/seen.html"
