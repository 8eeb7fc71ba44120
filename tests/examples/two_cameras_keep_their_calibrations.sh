#!/bin/sh
# Two cameras with calibrations of their own see the same scene, and measure the same:
# two_cameras_keep_their_calibrations.sh SIMULATOR TWO_CAMERAS.
set -eu
. "$(dirname "$0")/near.sh"
folder=$(mktemp -d)
cd "$folder"
for camera in 1 2; do
  "$1" calibration --folder calibrations --serial "KEOD200$camera" --seed "$camera" --sensor 160x128 >/dev/null
done
if cmp -s calibrations/KEOD2001/calibration.txt calibrations/KEOD2002/calibration.txt; then fail "they are the same"; fi

start_simulator "$1" --cameras 2 --size 160x128 --scene uniform:celsius=60 --core-lens L25mm \
  --core-calibration calibrations
output=$("$2")
rm -r "$folder"
for camera in KEOD2001 KEOD2002; do
  temperatures=$(printf '%s\n' "$output" | sed -n "s/^$camera: \(.*\) degrees Celsius$/\1/p")
  # shellcheck disable=SC2086 # a word per number
  set -- $temperatures
  [ $# -eq 10 ] || fail "$camera measured $# times"
  for temperature in "$@"; do expect_near "$temperature" 60; done
done
