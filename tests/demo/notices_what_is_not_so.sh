#!/bin/sh
# The demonstration, with a program that does not set the emissivity but says so: it has to end with status 1, and to
# name what does not hold. Arguments: the script, the program.
set -eu
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir "$scratch/bin"
cat >"$scratch/bin/keocam" <<END
#!/bin/sh
[ "\$1" != set ] || exit 0
exec "$2" "\$@"
END
chmod +x "$scratch/bin/keocam"

status=0
"$1" with "$scratch/bin" "$scratch" >"$scratch/said" 2>&1 || status=$?
cat "$scratch/said"
[ "$status" -eq 1 ] || { echo "The status is $status, not 1."; exit 1; }
for claim in "The core knows its emissivity now" "The disc has .* off"; do
  grep -q "NOT SO. $claim" "$scratch/said" || { echo "Not noticed: $claim"; exit 1; }
done
grep -q "^Claims that do not hold: 3\$" "$scratch/said" || { echo "Not three claims do not hold."; exit 1; }
