#!/bin/sh
# The commands that the README lists run in their order: readme_commands_run.sh README SIMULATOR KEOCAM.
set -eu
. "$(dirname "$0")/../interop/simulator.sh"
readme=$1
PATH=$(dirname "$3"):$PATH
# Small, and with a serial line that takes no time: a lens' tables take minutes otherwise.
start_simulator "$2" --size 160x128 --uart-pacing off --scene hot-spot:low=25,high=90
cd "$scratch"

commands=$(sed -n '/^## The command line/,/^## /p' "$readme" | sed -n '/^```sh$/,/^```$/p' | sed '/^```/d; s/  *#.*//; /^$/d')
[ "$(printf '%s\n' "$commands" | grep -c '^keocam ')" -ge 20 ] || fail "the README lists fewer commands than it did"
# As a person would: one after the other, with what is exported in force from then on.
while read -r command; do
  case $command in
    *"calibration make"*) command="$command --sensor 160x128" ;;
  esac
  echo "$ $command"
  eval "$command" </dev/null || fail "'$command' ended with status $?"
done <<END
$commands
END
