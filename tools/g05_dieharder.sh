#!/bin/sh
# A quick statistical check of the g05 uniform generators with dieharder:
# not part of the test suite.  Usage: tools/g05_dieharder.sh BUILD_DIR
# Builds tools/g05_stream.c against BUILD_DIR/libzem.so and runs a set of
# dieharder tests on the stored generator, the basic and one Wichmann-Hill
# seed-array generator, each fed from a pipe.
set -e
BUILD=${1:?build directory}
SRC=$(cd "$(dirname "$0")/.." && pwd)
BIN="$BUILD/g05_stream"
cc -O2 -std=c99 -I"$SRC/include" -I"$BUILD/generated" "$SRC/tools/g05_stream.c" \
  -L"$BUILD" -Wl,-rpath,"$BUILD" -lzem -o "$BIN"
TESTS="0 1 2 3 8 10 13 15 17 100 101 102 202 203 204 205"
for gen in "stored" "basic" "wh 1"; do
  echo "== $gen"
  for d in $TESTS; do
    # shellcheck disable=SC2086
    "$BIN" $gen | dieharder -g 200 -d "$d" 2>/dev/null | grep -E 'PASSED|WEAK|FAILED' || true
  done
done
