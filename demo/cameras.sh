# The demonstration's two simulated cameras: sourced by script/demo. Wants $scratch, a folder of its own, and $bin.
#
# KEOD2001 looks at a disc of known temperature through the lens L13mm, while its core still holds the tables of the
# lens before. Its serial line takes no time: at 57600 baud the tables would take minutes.
camera=KEOD2001
other_camera=KEOC2002
lens_before=L25mm
lens=L13mm
background_celsius=25
disc_celsius=240
disc_emissivity=0.9
disc_region=disc=spot:117,128,5
picture_region=picture=box:0,0,336,256
simulator=

# To be run in a shell of its own, which it becomes: so that a signal reaches it.
simulate() {
  exec "$bin/keocam" simulate --model 336r-fast --model 640-slow --uart-pacing off \
    --core-flash "$scratch/flash" --core-lens "$1" --core-calibration "$KEOCAM_DATA_DIR" \
    --scene "hot-spot:low=$background_celsius,high=$disc_celsius,x=0.35,size=0.4,emissivity=$disc_emissivity"
}

make_calibrations() {
  "$bin/keocam" calibration make --folder "$KEOCAM_DATA_DIR" --serial "$camera" --sensor 336x256 --lenses 2 >/dev/null
  "$bin/keocam" calibration make --folder "$KEOCAM_DATA_DIR" --serial "$other_camera" --lenses 2 >/dev/null
}

# The cores' memories are files, which the first run makes.
start_cameras() {
  mkfifo "$scratch/ready"
  exec 3<>"$scratch/ready"
  echo quit | simulate "$lens_before" 2>/dev/null >/dev/null
  simulate "$lens" </dev/null >&3 &
  simulator=$!
  # It says "ready" once its cameras are on the network.
  timeout 15 sh -c 'read -r line <&3 && [ "$line" = ready ]' 3<&3 || {
    echo "The simulator did not start; its message is above." >&2
    exit 1
  }
}

stop_cameras() {
  [ -z "$simulator" ] || { kill "$simulator" 2>/dev/null || true; wait "$simulator" 2>/dev/null || true; }
  simulator=
}
