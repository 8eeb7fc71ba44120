# Starts a simulator for a test script and ends it with the script. Read by the scripts here.

# start_simulator PROGRAM [OPTION...]: returns once the cameras are on the network.
start_simulator() {
  scratch=$(mktemp -d)
  mkfifo "$scratch/ready"
  exec 3<>"$scratch/ready"
  "$@" </dev/null >&3 2>"$scratch/simulator.log" &
  simulator=$!
  trap stop_simulator EXIT
  trap 'exit 130' INT
  trap 'exit 143' TERM
  if ! timeout 10 sh -c 'read -r line <&3 && [ "$line" = ready ]' 3<&3; then
    cat "$scratch/simulator.log" >&2
    fail "the simulator did not become ready"
  fi
}

stop_simulator() {
  [ -n "${simulator:-}" ] || return 0
  kill "$simulator" 2>/dev/null || true
  wait "$simulator" 2>/dev/null || true
  simulator=
  rm -rf "$scratch"
}

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

# expect_line TEXT PATTERN: TEXT must have a line that matches the extended regular expression.
expect_line() {
  printf '%s\n' "$1" | grep -Eq -- "$2" || fail "no line matches '$2' in:
$1"
}
