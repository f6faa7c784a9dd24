#!/usr/bin/env bash
# reproduction.sh GUIDE SCENARIO PROGRAM…: runs the four commands of GUIDE unchanged, with PROGRAM as
# wmihost and SCENARIO as campus.json, and checks their results.
set -euo pipefail
guide=$(sed -n '/begin four-commands/,/end four-commands/s/^    //p' "$1") scenario=$2
shift 2
program=("$@")
wmihost() { "${program[@]}" "$@" </dev/null; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
unset WIFI_SCENARIO WIFI_PROVIDER_TRACE
export SOURCE_DATE_EPOCH=0
cp "$scenario" campus.json

fail() { echo "$*" && exit 1; }
[ "$(grep -c . <<<"$guide")" = 4 ] || fail "the guide has not four commands"
eval "$guide" >shown 2>said || fail "the commands fail:" "$(cat said)"
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
