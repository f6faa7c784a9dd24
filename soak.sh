#!/usr/bin/env bash
# soak.sh [SCALE]: does what a service host does with the module over months and checks that memory,
# handles and threads do not grow: a million mixed requests to one provider, ten thousand loads and
# unloads, two providers in two threads under ThreadSanitizer, and a tenth of that with the DLL under
# Wine. SCALE is the number of repetitions in per cent (100).
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
