#!/bin/sh
# Builds an example against an installed library with pkg-config alone, and runs it:
# pkg_config_program_runs.sh COMPILER EXAMPLES PREFIX LIBDIR SCRATCH.
set -eu
compiler=$1 examples=$2 prefix=$3 libdir=$4 scratch=$5
rm -rf "$scratch"
mkdir -p "$scratch"
# Of no other folder: a program needs nothing that the library itself is built with.
export PKG_CONFIG_LIBDIR="$prefix/$libdir/pkgconfig"
flags=$(pkg-config --cflags --libs keocam)
# shellcheck disable=SC2086 # a word per flag
"$compiler" -std=c++17 "$examples/middle_pixel.cpp" -o "$scratch/middle_pixel" $flags

# The headers want nothing else either.
(cd "$prefix/include/keocam" && find . -name '*.h' | sed 's/.*/#include "&"/') >"$scratch/headers.cpp"
# shellcheck disable=SC2086
"$compiler" -std=c++17 -fsyntax-only -Wall -Wextra -Werror "$scratch/headers.cpp" $flags
export LD_LIBRARY_PATH="$prefix/$libdir"
exec "$(dirname "$0")/../examples/middle_pixel_prints_temperature.sh" "$prefix/bin/keocam-simulator" \
  "$scratch/middle_pixel"
