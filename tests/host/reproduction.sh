#!/usr/bin/env bash
# reproduction.sh GUIDE SCENARIOS PROGRAM…: runs both times four commands of GUIDE unchanged, with PROGRAM
# as wmihost and campus.json and walk.json of the folder SCENARIOS, and checks their results.
set -euo pipefail
guide=$1 scenarios=$2
shift 2
program=("$@")
wmihost() { "${program[@]}" "$@" </dev/null; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
unset WIFI_SCENARIO WIFI_PROVIDER_TRACE
export SOURCE_DATE_EPOCH=0
cp "$scenarios"/{campus,walk}.json .

fail() { echo "$*" && exit 1; }
run() { # NAME: the commands of the guide between begin NAME and end NAME
  local commands
  commands=$(sed -n "/begin $1/,/end $1/s/^    //p" "$guide")
  [ "$(grep -c . <<<"$commands")" = 4 ] || fail "the guide has not four commands of $1"
  eval "$commands" >shown 2>said || fail "the commands fail:" "$(cat said)"
}
run four-commands
networks() { grep -c '"ChannelID"' "$1"; }
[ "$(networks customer.json)" = 18 ] || fail "the dump has $(networks customer.json) networks"
[ "$(networks report.html)" = 18 ] || fail "the report has $(networks report.html) networks"
grep -q '^GetAssociationInfo adapter=1 -> 0, ' said || fail "no call is traced"
wmihost --scenario replay.json --format json dump >again.json
# The names of the sources are not the same.
without() { sed "/^$2\"$3\": {\$/,/^$2}/d" "$1"; }
cmp <(without customer.json '      ' Source) <(without again.json '      ' Source)
wmihost scenario --from-dump report.html 2>remarks >page.json
cmp <(without replay.json '  ' madeOf) <(without page.json '  ' madeOf)
grep -q '"source": "a dump, customer.json, of campus.json"' replay.json
grep -q '"MadeOf": "a dump, customer.json, of campus.json"' again.json

run recorded-commands
[ "$(wc -l <fault.jsonl)" = 120 ] || fail "there are $(wc -l <fault.jsonl) samples"
[ "$(tr -d '\r' <shown | awk '$1 == 7 { print $2 ($2 == "not" ? "" : " " $4 " " $5) }')" = "associated 00:1D:A1:30:04:00 -88
not
associated 00:1D:A1:30:05:00 -70" ] || fail "the fault is not where it was: $(cat shown)"
