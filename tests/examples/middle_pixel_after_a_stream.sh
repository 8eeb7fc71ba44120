#!/bin/sh
# The picture that is frozen when the connection is ready is not that of an earlier stream, in raw counts:
# middle_pixel_after_a_stream.sh SIMULATOR MIDDLE_PIXEL KEOCAM.
set -eu
. "$(dirname "$0")/near.sh"
start_simulator "$1" --size 336x256 --scene hot-spot:low=25,high=90
"$3" stream -q --frames 3
output=$("$2")
expect_near "$(printf '%s\n' "$output" | sed -n 's/ degrees Celsius$//p')" 90
