#!/bin/sh
# A frame as a table, of which the corners are known: save_frame_writes_temperatures.sh SIMULATOR SAVE_FRAME.
set -eu
. "$(dirname "$0")/near.sh"
start_simulator "$1" --size 336x256 --scene gradient:low=0,high=100
"$2" "$scratch/frame.csv"

# Each line is a row of as many pixels; the gradient runs from the top left to the bottom right.
corners=$(awk -F, 'NF != 336 { exit 1 } NR == 1 { print $1, $NF } { last = $1 " " $NF } END { print last, NR }' \
  "$scratch/frame.csv") || fail "a row has not 336 pixels"
# shellcheck disable=SC2086 # a word per number
set -- $corners
expect_near "$1" 0
expect_near "$2" 50
expect_near "$3" 50
expect_near "$4" 100
[ "$5" = 256 ] || fail "there are $5 rows"
