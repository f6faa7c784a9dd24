#!/usr/bin/env bash
# soak.sh [SCALE]: what a service host does with the module over months, and that memory, handles and
# threads stay what they are: a million mixed requests to one provider, ten thousand loads and
# unloads, two providers in two threads under ThreadSanitizer; a tenth of it with the DLL under Wine.
# SCALE, in per cent (100), is for less or more of it.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$root/cmake/prepare.sh"
scale=${1:-100}
install_packages native windows
build native soak WiFiAdapterProvider
build threads
build windows soak WiFiAdapterProvider
use_wine
"$root/build/native/bin/soak" requests $((10000 * scale))
"$root/build/native/bin/soak" cycles $((100 * scale))
"$root/build/threads/bin/soak" threads $((200 * scale))
wine "$root/build/windows/bin/soak.exe" requests $((1000 * scale))
wine "$root/build/windows/bin/soak.exe" cycles $((10 * scale))
