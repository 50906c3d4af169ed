#!/usr/bin/env bash
# Builds the library and its example programs and runs the demo: each
# example solves a small problem and prints its result.
set -euo pipefail
cd "$(dirname "$0")/.."
source tools/deps.sh
zem_install_packages "${ZEM_LIB_PACKAGES[@]}"
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release -DZEM_BUILD_TESTS=OFF >/dev/null
cmake --build build -j"$(nproc)"
for e in $(cat examples/demo.txt); do
  echo "=================== $e"
  ./build/examples/"$e"
done
