#!/usr/bin/env bash
# Fails on what clang-tidy (.clang-tidy) or cppcheck find in the product's sources. Clang reads them as
# unity builds, so that it reads each header once.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. cmake/source_files.sh
build=build/lint
mkdir -p "$build"
log=$build/configure.log
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ \
  -DCMAKE_CXX_COMPILER_LAUNCHER= -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON -DCMAKE_UNITY_BUILD=ON \
  -DCMAKE_UNITY_BUILD_BATCH_SIZE=0 >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
failed=0
cores=$(nproc)
units=$(sed -nE 's/.*"file": "(.*)".*/\1/p' "$build/compile_commands.json" | grep -vE '/tests/|/embedded_')
echo "clang-tidy: $(wc -l <<<"$units") units"
# Standard error contains only the number of suppressed warnings.
xargs -P "$cores" -n 1 clang-tidy -p "$build" --quiet <<<"$units" 2>"$build/clang-tidy.log" || failed=1
[ "$failed" = 0 ] || grep -i error "$build/clang-tidy.log" >&2 || true

# cppcheck needs no compiler for the platform: it also checks the Windows sources.
sources=$(source_files '*.cpp' | grep -vE '^(tests|bench|fuzz)/')
echo "cppcheck: $(wc -l <<<"$sources") sources"
xargs cppcheck --quiet --std=c++20 --language=c++ --enable=warning,performance,portability \
  --inline-suppr -I. -j"$cores" --error-exitcode=1 <<<"$sources" || failed=1
exit "$failed"
