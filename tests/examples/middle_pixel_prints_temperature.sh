#!/bin/sh
# The middle of the picture, which is hot: middle_pixel_prints_temperature.sh SIMULATOR MIDDLE_PIXEL.
set -eu
. "$(dirname "$0")/near.sh"
if output=$("$2" 2>&1); then fail "without a camera it ends well"; fi
expect_line "$output" '^No camera was found\.$'

start_simulator "$1" --size 336x256 --scene hot-spot:low=25,high=90
output=$("$2")
expect_near "$(printf '%s\n' "$output" | sed -n 's/ degrees Celsius$//p')" 90
