#!/bin/sh
# set_load_config.sh DLL OBJDUMP NM SIZE: enters the DLL's load configuration, the unexported symbol
# _load_config_used, into its header. The linker writes the header itself, out of reach of object files
# and linker scripts. GNU ld 2.40 fills only the directories that it knows, which do not include this
# one, and objcopy has no option for it. So the bytes are written here.
set -eu
dll=$1
objdump=$2
nm=$3

# The symbol's address relative to the image, little-endian.
address=$("$nm" "$dll" | awk '$3 == "_load_config_used" { print $1 }')
base=$("$objdump" -p "$dll" | awk '$1 == "ImageBase" { print $2 }')
[ -n "$address" ] && [ -n "$base" ] || { echo "$dll has no load configuration" >&2; exit 1; }
relative=$((0x$address - 0x$base))

little() { # VALUE: four bytes as printf escapes
  printf '\\%03o\\%03o\\%03o\\%03o' $(($1 & 255)) $(($1 >> 8 & 255)) $(($1 >> 16 & 255)) $(($1 >> 24 & 255))
}

# The offset of the header is at 0x3C; the eleventh data directory is 24 + 112 + 80 bytes after it.
header=$(od -An -tu4 -j60 -N4 "$dll" | tr -d ' ')
printf "$(little $relative)$(little $(($4)))" |
  dd of="$dll" bs=1 seek=$((header + 216)) conv=notrunc status=none
