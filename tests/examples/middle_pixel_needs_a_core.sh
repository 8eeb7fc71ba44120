#!/bin/sh
# A camera without a thermal core has no temperatures to tell: middle_pixel_needs_a_core.sh SIMULATOR MIDDLE_PIXEL.
set -eu
. "$(dirname "$0")/near.sh"
start_simulator "$1" --no-core
if output=$("$2" 2>&1); then fail "without a core it ends well"; fi
expect_line "$output" '^The thermal core does not answer'
expect_line "$output" '^Camera: Disconnecting device$'
