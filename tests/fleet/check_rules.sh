#!/usr/bin/env bash
# check_rules.sh WORK: the rules are accepted, and each alert fires when it must and only then.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$1"
cp "$here/rules_test.yml" "$here/../../integrations/prometheus/wifi-rules.yml" "$1"
cd "$1"
promtool check rules wifi-rules.yml
promtool test rules rules_test.yml
