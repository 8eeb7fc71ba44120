# What the tests here share.
. "$(dirname "$0")/../interop/simulator.sh"

# expect_near VALUE TRUTH: to a tenth of a degree.
expect_near() {
  awk -v value="$1" -v truth="$2" 'BEGIN { off = value - truth; exit !(value != "" && off > -0.1 && off < 0.1) }' ||
    fail "'$1' is not $2 degrees"
}
