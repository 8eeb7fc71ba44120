#!/bin/sh
# Aravis' streaming test receives every frame of a simulated camera, as shipped and with lost packets.
set -eu
. "$(dirname "$0")/simulator.sh"

# stream NAME: five seconds; sets `report`.
stream() {
  report=$(arv-camera-test-0.8 --no-packet-socket --duration=5 -n 127.0.0.2 2>&1)
  printf '%s\n' "$report"
  expect_line "$report" '^payload += 40960 bytes'
}

# figure NAME: the value of a line "NAME = VALUE" of the report.
figure() { printf '%s\n' "$report" | sed -n "s/^$1 *= //p"; }

# expect_whole_stream: nearly 150 frames of 30 a second, and none that failed.
expect_whole_stream() {
  [ "$(figure n_completed_buffers)" -ge 120 ] || fail "only $(figure n_completed_buffers) frames in 5 s at 30 a second"
  for name in n_failures n_underruns n_timeouts n_aborted n_missing_frames n_size_mismatch_errors n_error_packets; do
    [ "$(figure $name)" = 0 ] || fail "$name is $(figure $name)"
  done
}

# The tool keeps the small socket buffer that a system gives it. Some frames of this size fit into it, so that none is
# lost when the machine is busy for a moment.
start_simulator "$1" --fps 30 --size 160x128
stream
expect_whole_stream
stop_simulator

start_simulator "$1" --fps 30 --size 160x128 --loss 10
stream
expect_whole_stream
[ "$(figure n_resent_packets)" -gt 0 ] || fail "no packet was lost and resent: this run proves nothing"
