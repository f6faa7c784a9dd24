#!/usr/bin/env bash
# whole_files.sh WORK PROGRAM…: dump and report, of wmihost, which is PROGRAM, write a file whole or not at
# all. WORK is a folder for their files.
set -uo pipefail
work=$1
shift
program=("$@")
rm -rf "$work" && mkdir -p "$work/folder" && cd "$work" || exit 1
unset WIFI_SCENARIO WIFI_PROVIDER_TRACE
export SOURCE_DATE_EPOCH=0
bad=0
fault() { echo "$*" && bad=1; }

# The file has what a pipe gets; it replaces what was there, also through a link, which stays one.
"${program[@]}" dump --format json >piped.json 2>/dev/null
"${program[@]}" report >piped.html 2>/dev/null
for command in dump report; do
  name=$([ $command = dump ] && echo json || echo html)
  ln -s real link
  echo before >real
  "${program[@]}" $command new 2>/dev/null || fault "$command new: ends with $?"
  "${program[@]}" $command link 2>/dev/null || fault "$command link: ends with $?"
  cmp -s piped.$name new || fault "$command: the new file is not what a pipe gets"
  cmp -s piped.$name real || fault "$command: the file of a link is not what a pipe gets"
  [ -L link ] || fault "$command: the link is gone"

  # A disk that is full: the file of before stays, and no other is left.
  for target in new link; do
    echo before >new && echo before >real
    status=0
    (trap '' XFSZ && ulimit -f 8 && "${program[@]}" $command $target 2>errors) || status=$?
    [ $status = 6 ] || fault "$command $target on a full disk: ends with $status"
    grep -q "^wmihost: $target: it cannot be written" errors || fault "$command: $(cat errors)"
  done
  # The end of the program while it writes.
  (ulimit -f 8; "${program[@]}" $command new; true) 2>/dev/null
  [ -f new.part ] || fault "$command: it was not ended while it writes"
  rm -f new.part*
  [ "$(cat new real)" = $'before\nbefore' ] || fault "$command: a file is not that of before"

  for target in folder nowhere/file /dev/full; do
    status=0
    "${program[@]}" $command $target 2>errors || status=$?
    [ $status = 6 ] || fault "$command $target: ends with $status"
    grep -q "^wmihost: $target: it cannot be written" errors || fault "$command $target: $(cat errors)"
  done
  # A file that seems to be a draft is somebody else's.
  echo other >new.part
  "${program[@]}" $command new 2>/dev/null
  cmp -s piped.$name new || fault "$command beside another's draft: not the file that a pipe gets"
  [ "$(cat new.part)" = other ] || fault "$command: it wrote over another's file"
  rm -f new new.part link real
done

# A page is nothing for a terminal.
atTerminal() { script -qec "$(printf '%q ' "${program[@]}" "$@")" /dev/null </dev/null; }
shown=$(atTerminal report | tr -d '\r')
[ "$shown" = "wmihost: the report is in wifi-report.html" ] || fault "at a terminal: $shown"
cmp -s piped.html wifi-report.html || fault "wifi-report.html is not what a pipe gets"
echo before >wifi-report.html
shown=$(atTerminal report)
[[ $shown == *"name a FILE"* ]] || fault "at a terminal, where the file is there already: $shown"
[ "$(cat wifi-report.html)" = before ] || fault "at a terminal: it wrote over wifi-report.html"
status=0
"${program[@]}" report --format json >out 2>&1 || status=$?
[ $status = 2 ] && grep -q 'report writes a page' out || fault "report --format json: ends with $status: $(cat out)"
rm -f errors out wifi-report.html piped.*
[ "$(ls)" = folder ] || fault "these files are left: $(ls)"
exit $bad
