#!/usr/bin/env bash
# Builds the benchmarks and prints their tables: ./bench.sh [--windows] [OPTIONS of the benchmark library…]
# --windows measures the Windows build under Wine, compared with a provider of the platform itself.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$root/cmake/prepare.sh"

# Debian has the benchmark library only for its own architectures. For Windows it is compiled from the
# sources of the same package, which are fetched through a separate list of package sources.
benchmark_sources() {
  local apt=$root/build/benchmark-sources
  [ -f "$apt/library/CMakeLists.txt" ] && return
  mkdir -p "$apt/lists/partial" "$apt/library"
  sed 's/^Types: deb$/Types: deb-src/' /etc/apt/sources.list.d/*.sources >"$apt/debian.sources" 2>/dev/null ||
    sed 's/^deb /deb-src /' /etc/apt/sources.list >"$apt/debian.list"
  local options=(-qq -o Dir::State::Lists="$apt/lists" -o Dir::Etc::SourceList=/dev/null
                 -o Dir::Etc::SourceParts="$apt")
  (cd "$apt" && apt-get "${options[@]}" update && apt-get "${options[@]}" source --download-only benchmark) >&2
  tar -xf "$apt"/benchmark_*.orig.tar.* -C "$apt/library" --strip-components=1
}

preset=bench
if [ "${1:-}" = --windows ]; then
  preset=bench-windows
  shift
  install_packages windows
  benchmark_sources
else
  install_packages native bench
fi
build "$preset"
# The minimum of several short runs in which provider and floor alternate, so that other load on the
# machine affects both alike.
set -- --table --benchmark_repetitions=7 --benchmark_min_time=0.05 \
  --benchmark_enable_random_interleaving=true "$@"
if [ "$preset" = bench-windows ]; then
  use_wine
  exec wine "$root/build/$preset/bin/provider_bench.exe" "$@"
fi
exec "$root/build/$preset/bin/provider_bench" "$@"
