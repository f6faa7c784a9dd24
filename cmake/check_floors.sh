#!/usr/bin/env bash
# Fails, naming the line, on an include of a higher floor. The floors, from the lowest up, each with the
# folders that it may include besides its own; tests, benchmarks and fuzzers are not checked.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. cmake/source_files.sh

floors='
platform/tables
platform/native        platform/tables
platform/windows
platform               platform/native platform/windows
platform/control       platform platform/native
schema                 platform
adapterapi             platform
provider/core          platform adapterapi
profiles               platform adapterapi provider/core
classes                platform schema adapterapi provider/core
methods                platform schema adapterapi provider/core profiles classes
provider/registration  platform
provider/server        platform schema adapterapi provider/core profiles classes methods provider/registration
scenario               platform platform/tables schema adapterapi
simulator              platform adapterapi scenario
host/mof               platform
host/os                platform platform/control
host/service           platform platform/tables scenario host/mof host/os
host/query             platform scenario host/mof host/os host/service
host/format            platform scenario host/mof host/os host/service
host/model             platform platform/tables scenario host/mof host/os host/service host/query host/format
host/report            platform scenario host/mof host/os host/service host/query host/format host/model
host/fleet             platform scenario schema host/mof host/os host/service host/query host/format host/model host/report
host/history           platform scenario host/mof host/os host/service host/query host/format host/model
host/terminal          platform scenario host/mof host/os host/service host/query host/format host/model
host/cli               platform platform/control scenario host/mof host/os host/service host/query host/format host/model host/report host/fleet host/history host/terminal
'

source_files '*.h' '*.cpp' '*.inc' |
  grep -vE '^(tests|bench|fuzz)/' |
  xargs grep -nE '^[[:space:]]*#[[:space:]]*include[[:space:]]*"' |
  awk -F: -v floors="$floors" '
    BEGIN {
      count = split(floors, rows, "\n")
      for (row = 1; row <= count; ++row) {
        words = split(rows[row], names, " ")
        for (word = 1; word <= words; ++word) may[names[1], names[word]] = 1
        if (words > 0) floor[names[1]] = 1
      }
    }
    # The floor of a file: the longest listed folder that contains it.
    function floor_of(file) {
      while (sub("/[^/]*$", "", file)) if (file in floor) return file
      return ""
    }
    {
      ++includes
      match($0, /"[^"]*"/)
      from = floor_of($1)
      to = floor_of(substr($0, RSTART + 1, RLENGTH - 2))
      if ((from, to) in may && from != "") next
      ++failures
      printf "%s:%s: %s may not include %s\n", $1, $2, from == "" ? "a folder without a floor" : from,
             substr($0, RSTART, RLENGTH)
    }
    END {
      if (failures > 0) {
        print "The floors, and what each may include, are in cmake/check_floors.sh"
        exit 1
      }
      if (includes == 0) { print "no include was found"; exit 1 }
      print includes " includes run down the house"
    }'
