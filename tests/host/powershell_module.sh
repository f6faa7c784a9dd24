#!/usr/bin/env bash
# powershell_module.sh PROGRAM…: makes the PowerShell module with PROGRAM, wmihost, and prints three of its
# files. Where xmllint is, every XML file must be well-formed, and with WIFI_POWERSHELL_SCHEMAS, a folder with
# cmdlets-over-objects.xsd, Format.xsd and Types.xsd, valid too.
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
"$@" export powershell modules
: >file
status=0
"$@" export powershell file 2>said || status=$?
[ $status = 6 ] && grep -q '^wmihost: file/' said || { echo "a file as the folder gives $status:"; cat said; exit 1; }
cd modules/WiFiAdapter
if command -v xmllint >/dev/null; then
  find . -name '*.*xml' -exec xmllint --noout {} +
  if [ -n "${WIFI_POWERSHELL_SCHEMAS:-}" ]; then
    valid() { xmllint --noout --schema "$WIFI_POWERSHELL_SCHEMAS/$1" "${@:2}" 2>invalid || { cat invalid; exit 1; }; }
    valid cmdlets-over-objects.xsd ./*.cdxml
    valid Format.xsd ./*.format.ps1xml
    valid Types.xsd ./*.types.ps1xml
    rm invalid
  fi
fi
# What the manifest lists is there, and nothing else.
diff <(sed -n "/FileList/,/)/s/^ *'\(.*\)'.*/\1/p" WiFiAdapter.psd1 | sort) <(find . -type f -printf '%P\n' | sort)
cat WiFi_NetworkExcludeList.cdxml en-US/WiFi_SystemPolicies.cdxml-Help.xml WiFiAdapter.psd1
