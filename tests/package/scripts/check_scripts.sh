#!/bin/sh
# check_scripts.sh BUILD FILE…: parses the package's PowerShell scripts, which cannot run here. The
# parser comes from the npm registry, in the versions of package.json, once per build folder.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
work=$1/script-parser
shift
mkdir -p "$work"
cp "$here/package.json" "$here/check_scripts.js" "$work/"
cd "$work"
# Without install scripts: the WebAssembly parsers need nothing built.
if ! cmp -s package.json installed.json; then
  npm install --ignore-scripts --legacy-peer-deps --no-audit --no-fund --no-package-lock >install.log 2>&1 || {
    echo "check_scripts: npm cannot install the parser (is the npm registry in reach?): $(tail -n 3 install.log)" >&2
    exit 1
  }
  cp package.json installed.json
fi
node check_scripts.js "$@"
echo "$# scripts parse"
