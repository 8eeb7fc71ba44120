# Cross-compilation for 64-bit Arm on Debian and Ubuntu with the distribution's multi-arch packages.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)

set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)

# The plain pkg-config finds the other architecture's files when it looks nowhere else.
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/aarch64-linux-gnu/pkgconfig:/usr/share/pkgconfig)

# Named outright: not every machine has qemu registered with its kernel. No -L either: the multi-arch paths suffice.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64-static)
