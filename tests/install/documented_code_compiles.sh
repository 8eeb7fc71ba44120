#!/bin/sh
# The C++ in documents is that of the installed library: documented_code_compiles.sh COMPILER PREFIX LIBDIR SCRATCH DOCUMENT...
set -eu
compiler=$1 prefix=$2 libdir=$3 scratch=$4
shift 4
rm -rf "$scratch"
mkdir -p "$scratch"
export PKG_CONFIG_LIBDIR="$prefix/$libdir/pkgconfig"
flags=$(pkg-config --cflags --libs keocam)

# A file per block. One without main is a piece of a function in which the names that it does not declare are at hand.
awk -v folder="$scratch" '
  function end_block() {
    file = folder "/" ++blocks ".cpp"
    if (code !~ /int main/) {
      includes = includes "#include \"camera/Camera.h\"\n#include \"serial/CameraSerialSettings.h\"\n" \
        "#include \"radiometry/TemperatureConverter.h\"\n#include <vector>\n"
      code = "void use(Camera& camera, Camera& other, CameraSerialSettings& core, const uint16_t* pixels,\n" \
        "         std::vector<float>& celsius) {\n{\n" code "}\n" \
        "(void)camera, (void)other, (void)core, (void)pixels, (void)celsius;\n}\n"
    }
    printf "%s%s", includes, code >file
  }
  /^```cpp$/ { inside = 1; code = includes = ""; next }
  /^```$/ { if (inside && code !~ /cv::/) end_block(); inside = 0; next }
  inside && /^#include/ { includes = includes $0 "\n"; next }
  inside { code = code $0 "\n" }
  END { exit blocks < 4 }
' "$@" || { echo "FAILED: there are fewer blocks of C++ than there were" >&2; exit 1; }

for file in "$scratch"/*.cpp; do
  # shellcheck disable=SC2086 # a word per flag
  "$compiler" -std=c++17 -fsyntax-only "$file" $flags
done
