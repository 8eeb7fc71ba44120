#!/bin/sh
# Aravis' tool finds two simulated cameras, reads every feature of one, writes some and reads them back.
set -eu
. "$(dirname "$0")/simulator.sh"
start_simulator "$1" --cameras 2

list=$(arv-tool-0.8)
expect_line "$list" 'KEOD2001 \(127\.0\.0\.2\)$'
expect_line "$list" 'KEOD2002 \(127\.0\.0\.3\)$'

# One camera by address: no other listens there.
tool() { arv-tool-0.8 -a 127.0.0.2 "$@" 2>&1; }

values=$(tool values)
for pattern in "'Width' = 640 px$" "'Height' = 512 px$" "'PixelFormat' = 'Mono14'$" "'PayloadSize' = 655360 B$" \
  "'BulkBaudRate' = 'Baud57600'$" "'BulkLoopback' = false$" "'FileAccessBuffer'$" "'GevSCPSPacketSize' = [0-9]+"; do
  expect_line "$values" "$pattern"
done
if printf '%s\n' "$values" | grep -E ' error| read_|Failed'; then fail "reading the values had errors"; fi

tool control TestPattern=GreyHorizontalRamp Width=320 BulkLoopback=true GevSCPD=1000 >/dev/null
written=$(tool control TestPattern Width BulkLoopback GevSCPD PayloadSize)
expect_line "$written" 'TestPattern = .?GreyHorizontalRamp'
expect_line "$written" '^Width = 320( |$)'
expect_line "$written" '^BulkLoopback = true'
expect_line "$written" '^GevSCPD = 1000( |$)'
expect_line "$written" '^PayloadSize = 327680( |$)'

# The tool sends what it is told; the camera must refuse what it cannot do, and keep its value.
expect_line "$(tool control Width=641)" '^Width write error: .*invalid-parameter'
expect_line "$(tool control Width)" '^Width = 320( |$)'
