#!/usr/bin/env bash
# strange_machines.sh OPERATIONS WORK PROGRAM…: writes reports of machines that a page must not misread into
# WORK, by wmihost, which is PROGRAM, and looks at what each page says and does not say. OPERATIONS is the
# list of the library's operations. Charts are measured, also that of a capture of a home.
set -euo pipefail
operations=$(sed -nE 's/^QUARN_OPERATION\([0-9]+, ([A-Za-z0-9]+),.*/\1/p' "$1" | grep -v '^GetAdapterList$' | tr '\n' ' ')
work=$2
shift 2
program=("$@")
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$work" && mkdir -p "$work" && cd "$work"
unset WIFI_SCENARIO WIFI_PROVIDER_TRACE
export SOURCE_DATE_EPOCH=0

# What a page has (+) and has not (-), one row a text: machine, sign, text. The page's markup is taken
# away, and what follows the adapters' and networks' sections.
says='
fifty-adapters       + 50 adapters are not associated
fifty-adapters       + Charts of 42 more adapters
fifty-adapters       + The enumeration ended at adapter 10, WBEM_E_NOT_FOUND
fifty-adapters       - Orvel Wireless LAN Adapter (9) is not associated
thousand-in-a-band   + 1000 networks
thousand-in-a-band   + Hears 1000 networks
forty-on-a-channel   + +33
forty-on-a-channel   + 32 more networks on channel 6, from
first-radio-off      + Orvel Wireless LAN Adapter (8) was not asked for its networks
first-radio-off      + Hears at least 1 network: the enumeration ended at adapter 7, WBEM_E_NOT_FOUND (0x80041002)
first-radio-off      + Net 2.1
first-radio-off      - Net 2.2
first-radio-off      - Hears 0 networks
start-failed         + start failed E_ACCESSDENIED (0x80070005)
start-failed         + Whether there are adapters is not known
start-failed         - There is no adapter
class-failed         + Orvel Wireless LAN Adapter (8) did not tell all of its networks
class-failed         + the list could not be read, WBEM_E_PROVIDER_FAILURE (0x80041004)
class-failed         + MAC not known:
class-failed         + MAC 02:00:00:00:00:02
class-failed         - Hears 0 networks
all-calls-fail       + classes were not read in full
all-calls-fail       + Association not known: the adapter does not tell it
all-calls-fail       - Hears 0 networks
all-calls-fail       - radio off
all-calls-fail       - is not associated
wild-signals         + at 30, 30 dBm
wild-signals         + at -200, -200 dBm
wild-signals         - at -1, -1 dBm
no-place             + 36 among 2.4 (channel 36)
no-place             + on 15 (channel 15)
no-place             + on zero
wild-names           + as UTF-8: 日本語
wild-names           + as UTF-8: Café
wild-names           + 0123456789abcdef0123456789abcdef
wild-names           + \u008d\u008f\u009dA
wild-names           - as UTF-8: Caf?
no-adapter           + There is no adapter
no-adapter           - not known
empty-lists          + the list is empty or could not be read, WBEM_E_NOT_FOUND
empty-lists          + Hears not known: the enumeration ended at adapter 7
empty-lists          - Hears 0 networks
five-thousand        + 5000 networks
two-hundred-adapters + 200 adapters are not associated
two-hundred-adapters + Hears 2 networks
'
textOf() {  # PAGE
  sed -n '/<body>/,/id="classes"/p' "$1" | sed -E 's/<[^>]*>/ /g; s/&lt;/</g; s/&gt;/>/g; s/&#39;/'"'"'/g; s/&quot;/"/g; s/&amp;/\&/g' |
    tr -s ' \n' ' ' | sed 's/ :/:/g; s/ ,/,/g'
}
look_at_charts() {  # PAGE
  awk -f "$here/chart_positions.awk" "$1" >charts || { head -n 5 charts && bad=1; }
  read -r more _ < <(tail -n 1 charts)
  curves=$((curves + more))
}
bad=0 count=0 curves=0
for machine in $(awk -f "$here/strange_machines.awk"); do
  awk -v machine="$machine" -v operations="$operations" -f "$here/strange_machines.awk" >"$machine.json"
  status=0
  "${program[@]}" --scenario "$machine.json" report "$machine.html" 2>errors </dev/null || status=$?
  case $status in 0 | 3 | 4) ;; *) echo "$machine: ends with $status:" && cat errors && bad=1 && continue ;; esac
  textOf "$machine.html" >text
  grep -qF "scenario $machine.json" text || { echo "$machine: the page does not name its source" && bad=1; }
  while read -r _ sign text; do
    found=no
    grep -qF -- "$text" text && found=yes
    count=$((count + 1))
    case $sign$found in +yes | -no) ;; *) echo "$machine: $sign $text" && bad=1 ;; esac
  done < <(grep "^$machine " <<<"$says")
  look_at_charts "$machine.html"
done
"${program[@]}" scenario --from-iw "$here/data/iw-home.txt" >home.json 2>errors
"${program[@]}" --scenario home.json report home.html 2>errors </dev/null
look_at_charts home.html
grep -qF 'yes <span class="invented">made up' home.html || { echo "home: what the capture did not tell is not marked" && bad=1; }
[ "$count" -ge 40 ] || { echo "only $count texts were looked for" && bad=1; }
[ "$curves" -ge 700 ] || { echo "only $curves curves were measured" && bad=1; }
[ "$bad" = 0 ] && echo "$count texts and $curves curves are as they are to be"
