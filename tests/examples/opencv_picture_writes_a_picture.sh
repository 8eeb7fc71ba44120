#!/bin/sh
# A frame in false colours, dark where it is cold and light where it is hot:
# opencv_picture_writes_a_picture.sh SIMULATOR OPENCV_PICTURE.
set -eu
. "$(dirname "$0")/near.sh"
start_simulator "$1" --size 336x256 --scene gradient:low=0,high=100
"$2" "$scratch/frame.ppm"

# A text of its header, then three bytes per pixel. The gradient runs from the top left to the bottom right.
[ "$(head -n 2 "$scratch/frame.ppm" | tr '\n' ' ')" = "P6 336 256 " ] || fail "it is not a picture of 336x256"
brightness() {
  od -An -v -tu1 -w3 | awk '{ sum += $1 + $2 + $3; n++ } END { print int(sum / n / 3) }'
}
cold=$(tail -c "$((336 * 256 * 3))" "$scratch/frame.ppm" | head -c 30 | brightness)
hot=$(tail -c 30 "$scratch/frame.ppm" | brightness)
[ "$cold" -lt 20 ] || fail "the coldest corner has a brightness of $cold"
[ "$hot" -gt 180 ] || fail "the hottest corner has a brightness of $hot"
