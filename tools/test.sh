#!/usr/bin/env bash
# Builds the library and its tests and runs them.
#   tools/test.sh               Release build in build/
#   tools/test.sh --sanitize    AddressSanitizer + UBSan build in build-asan/
#   tools/test.sh --bench       also builds the benchmarks and runs each briefly
set -euo pipefail
cd "$(dirname "$0")/.."
source tools/deps.sh
zem_install_packages "${ZEM_LIB_PACKAGES[@]}" "${ZEM_TEST_PACKAGES[@]}"
dir=build; opts=(-DCMAKE_BUILD_TYPE=Release); bench=0
for a in "$@"; do
  case "$a" in
    --sanitize) dir=build-asan; opts=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DZEM_SANITIZE=ON) ;;
    --bench) bench=1 ;;
    *) echo "unknown option $a" >&2; exit 2 ;;
  esac
done
[ $bench -eq 1 ] && opts+=(-DZEM_BUILD_BENCH=ON)
jobs=$(nproc)
cmake -S . -B "$dir" "${opts[@]}" >/dev/null
cmake --build "$dir" -j"$jobs"
(cd "$dir" && ctest --output-on-failure -j"$jobs")
if [ $bench -eq 1 ]; then
  for b in "$dir"/bench/bench_*; do
    [ -x "$b" ] || continue
    echo "=================== $(basename "$b")"
    "$b" --benchmark_min_time=0.01
  done
fi
