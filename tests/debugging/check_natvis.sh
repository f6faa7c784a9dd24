#!/usr/bin/env bash
# check_natvis.sh [FILE]: fails if the natvis file is not well-formed, or names a member that its type does
# not have.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
file=${1:-tools/debugging/wifi_provider.natvis}
fail() { echo "$file: $*" >&2 && exit 1; }

# One token per line: a tag, or the text between two tags. Comments and the XML declaration are removed.
tokens=$(tr '\n' ' ' <"$file" | sed -E 's/<[?!][^>]*>//g; s/ +/ /g; s/>/>\n/g' | sed -E 's/^(.+)</\1\n</' | grep -v '^ *$')

open=() type='' count=0
while IFS= read -r token; do
  if [[ $token =~ ^\ *\<([A-Za-z]+)((\ [A-Za-z]+=\"[^\"\<\&]*\")*)\ ?(/?)\>$ ]]; then
    tag=${BASH_REMATCH[1]} attributes=${BASH_REMATCH[2]}
    [ -n "${BASH_REMATCH[4]}" ] || open+=("$tag")
    [[ ! $attributes =~ Name=\"([^\"]*)\" ]] || type=${BASH_REMATCH[1]##*::}
    [[ $attributes =~ Condition=\"([^\"]*)\" ]] && expressions=${BASH_REMATCH[1]} || expressions=
  elif [[ $token =~ ^\ *\</([A-Za-z]+)\>$ ]]; then
    [ ${#open[@]} -gt 0 ] && [ "${open[-1]}" = "${BASH_REMATCH[1]}" ] || fail "$token closes no open tag"
    unset 'open[-1]'
    continue
  elif [[ $token =~ [\<\&] ]]; then
    fail "not well-formed at: $token"
  elif [ "${open[-1]:-}" = DisplayString ]; then
    expressions=$(grep -oE '\{[^}]*\}' <<<"$token" | sed -E 's/[{}]//g; s/,.*//' || true)
  else
    expressions=$token
  fi
  for name in $(grep -oE '[A-Za-z_][A-Za-z0-9_]*' <<<"$expressions" | grep -vx nullptr); do
    awk -v type="$type" -v name="$name" '
      $0 ~ "^(class|struct) " type " " { inside = 1 }
      /^};/ { inside = 0 }
      inside && $0 ~ "[ *]" name "( = .*)?;" { found = 1 }
      END { exit !found }' platform/*.h provider/core/*.h || fail "$type has no member $name"
    count=$((count + 1))
  done
done <<<"$tokens"
[ ${#open[@]} = 0 ] || fail "${open[-1]} is not closed"
[ "$count" -gt 0 ] || fail "names no member"
