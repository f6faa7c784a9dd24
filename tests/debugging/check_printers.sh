#!/usr/bin/env bash
# check_printers.sh GDB PROGRAM: compares gdb's output for the values in values.cpp with the expected
# output.
set -euo pipefail
export LC_ALL=C.UTF-8
printers=$(dirname "${BASH_SOURCE[0]}")/../../tools/debugging/gdb_printers.py
expected='text = "Café \"5 GHz\""
nullText = null
empty = VT_EMPTY
number = VT_I4 -60
number.value_ = VT_I4 -60
flag = VT_BOOL true
failure = VT_ERROR 0x8007000e
array = VT_ARRAY | VT_BSTR, 16 elements
entry = "7", number 3, u"02:00:00:00:00:01"
entry.work = VT_BSTR "work"'
commands=(-ex "source $printers" -ex 'break Stop' -ex run -ex up)
while read -r name _; do
  commands+=(-ex "printf \"$name = \"" -ex "output $name" -ex 'echo \n')
done <<<"$expected"
shown=$("$1" -nx -batch "${commands[@]}" "$2" 2>&1 </dev/null)
if grep -q 'ptrace' <<<"$shown"; then
  exit 77  # not allowed to debug here
fi
diff <(echo "$expected") <(grep -E '^[A-Za-z_.]+ = ' <<<"$shown") || { echo "$shown" >&2 && exit 1; }
