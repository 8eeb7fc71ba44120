#!/bin/sh
# Builds the examples against an installed library as a project of their own, and runs one:
# cmake_program_runs.sh CMAKE EXAMPLES PREFIX SCRATCH.
set -eu
cmake=$1 examples=$2 prefix=$3 scratch=$4
rm -rf "$scratch"
"$cmake" -S "$examples" -B "$scratch" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_DISABLE_FIND_PACKAGE_OpenCV=ON
"$cmake" --build "$scratch"
exec "$(dirname "$0")/../examples/middle_pixel_prints_temperature.sh" "$prefix/bin/keocam-simulator" \
  "$scratch/middle_pixel"
