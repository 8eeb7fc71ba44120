# Debian packages that the scripts need, and their installation. Read by the other scripts.

# To build everything.
build_packages="g++ cmake ninja-build pkg-config libaravis-dev libusb-1.0-0-dev libcli11-dev nlohmann-json3-dev libpng-dev libtiff-dev zlib1g-dev"
# To test: also peers that others wrote, the tools that make a network namespace, and those that look at
# what is packaged.
test_packages="dpkg-dev file groff-base libgtest-dev libgmock-dev aravis-tools aravis-tools-cli iproute2 libtiff-tools util-linux"
demo_packages="iproute2 util-linux"
package_packages="dpkg-dev file"
bench_packages="libbenchmark-dev"
format_packages="clang-format"
lint_packages="clang-tidy"
fuzz_packages="clang libclang-rt-dev"
arm64_packages="g++-aarch64-linux-gnu qemu-user-static libaravis-dev:arm64 libusb-1.0-0-dev:arm64 libgtest-dev:arm64 libgmock-dev:arm64"

# Which of the packages named are not installed.
missing_packages() {
  native=$(dpkg --print-architecture)
  for package in "$@"; do
    case $package in
      *:*) statuses=$(dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null) ;;
      *) statuses=$(dpkg-query -W -f '${db:Status-Status}\n' "$package:$native" "$package:all" 2>/dev/null) ;;
    esac || true
    case $statuses in installed*) ;; *) printf '%s ' "$package" ;; esac
  done
}

# Installs what is missing of the packages named. Without root it says what to install, and ends the script.
require_packages() {
  if ! command -v dpkg-query >/dev/null 2>&1; then
    echo "This script installs what it needs with apt, on Debian and Ubuntu. Elsewhere install the counterparts of: $*" >&2
    return 0
  fi
  missing=$(missing_packages "$@")
  [ -n "$missing" ] || return 0
  if [ "$(id -u)" -ne 0 ]; then
    echo "These packages are missing. Install them and run this again:" >&2
    case $missing in *:arm64*) echo "  sudo dpkg --add-architecture arm64" >&2 ;; esac
    echo "  sudo apt-get update && sudo apt-get install -y ${missing% }" >&2
    exit 1
  fi
  case $missing in *:arm64*) dpkg --add-architecture arm64 ;; esac
  echo "Installing: $missing" >&2
  # A list of packages may be present already and good enough; fetching it is for when it is not.
  # shellcheck disable=SC2086 # one word per package
  apt_install $missing || { apt-get -q update >&2 && apt_install $missing; } || {
    echo "apt-get could not install: $missing" >&2
    echo "Look at its messages above; a network connection and the distribution's 'main' (Ubuntu: 'universe') are needed." >&2
    exit 1
  }
}

apt_install() {
  DEBIAN_FRONTEND=noninteractive apt-get -q install -y --no-install-recommends "$@" >&2
}
