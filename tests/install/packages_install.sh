#!/bin/bash
# Makes Debian packages of a build, unpacks them and runs what is in them: packages_install.sh CPACK BUILD SCRATCH.
set -euo pipefail
. "$(dirname "$0")/../interop/simulator.sh"
cpack=$1 build=$2 packages=$3
rm -rf "$packages"
"$cpack" --config "$build/CPackConfig.cmake" -B "$packages" -D CPACK_DEBIAN_COMPRESSION_TYPE=gzip >/dev/null

# field PACKAGE FIELD
field() { dpkg-deb -f "$packages/$1"_[0-9]*.deb "$2"; }

library=$(cd "$packages" && ls libkeocam[0-9]*.deb)
library=${library%%_*}
version=$(field "$library" Version)
[[ $(field "$library" Depends) == *libaravis-0.8-0* ]] || fail "$library does not ask for Aravis"
[[ $(field keocam Depends) == *libaravis-0.8-0* ]] || fail "keocam does not ask for Aravis"
[[ $(field libkeocam-dev Depends) == "$library (= $version)" ]] || fail "libkeocam-dev goes with another library"
for package in "$library" libkeocam-dev keocam; do
  [[ $(field "$package" Architecture) == "$(dpkg --print-architecture)" ]] || fail "$package is for another machine"
  dpkg-deb -x "$packages/$package"_[0-9]*.deb "$packages/root"
  [ -s "$packages/root/usr/share/doc/$package/copyright" ] || fail "$package has no copyright file"
done
if find "$packages/root" -mindepth 1 -maxdepth 1 ! -name usr | grep .; then fail "a file lies outside of /usr"; fi
[ -n "$(find "$packages/root/usr/lib" -name "libkeocam.so.*" -type f)" ] || fail "there is no library"
[ -s "$packages/root/usr/share/doc/libkeocam-dev/examples/middle_pixel.cpp" ] || fail "there are no examples"

bin=$packages/root/usr/bin
start_simulator "$bin/keocam-simulator"
expect_line "$("$bin/keocam" list)" '^KEOD2001 '
