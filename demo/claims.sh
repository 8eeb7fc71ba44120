# What the demonstration says, checked: sourced by script/demo. Wants $scratch, a folder of its own, and $bin.
claims_failed=0

# claim TEXT COMMAND...: says that TEXT holds if the command succeeds, or that it does not.
claim() {
  claim_text=$1
  shift
  if "$@"; then
    printf '  [ok] %s\n' "$claim_text"
  else
    printf '  [NOT SO] %s\n' "$claim_text"
    claims_failed=$((claims_failed + 1))
  fi
}

# Ends the demonstration with a count of the claims that did not hold.
conclude() {
  [ "$claims_failed" -eq 0 ] || { printf '\nClaims that do not hold: %s\n' "$claims_failed" >&2; exit 1; }
}

# run VERB...: shows and runs "keocam VERB...", and keeps its output in $scratch/out. Ends the demonstration where that
# fails, or does not end.
run() {
  printf '\n$ keocam %s\n' "$*"
  status=0
  timeout --foreground 45 "$bin/keocam" "$@" >"$scratch/out" || status=$?
  cat "$scratch/out"
  [ "$status" -eq 0 ] || { printf 'keocam %s: status %s\n' "$1" "$status" >&2; exit 1; }
}

# has PATTERN: whether a line of the output kept matches.
has() { grep -Eq -- "$1" "$scratch/out"; }

# within VALUE LEAST MOST: whether VALUE is a number, and not beyond either.
within() {
  awk -v value="$1" -v least="$2" -v most="$3" \
    'BEGIN { exit !(value ~ /^-?[0-9]+([.][0-9]+)?$/ && value + 0 >= least + 0 && value + 0 <= most + 0) }'
}

# mean REGION: from the table of measurements kept.
mean() { awk -v region="$1" '$1 == region { print $3 }' "$scratch/out"; }

# column NAME REGION: the values of a column of the CSV kept, a line for each measurement of the region.
column() {
  awk -F, -v name="$1" -v region="\"$2\"" '
    NR == 1 { for (i = 1; i <= NF; i++) if ($i == name) at = i }
    NR > 1 && $2 == region { gsub(/"/, "", $at); print $at }' "$scratch/out"
}

# all_within LEAST MOST: whether there are lines on standard input, and each is a number within.
all_within() {
  lines=0
  while read -r value; do
    within "$value" "$1" "$2" || return 1
    lines=$((lines + 1))
  done
  [ "$lines" -gt 0 ]
}

# begins_with FILE OCTAL...: whether the file begins with these bytes.
begins_with() {
  file=$1
  shift
  [ "$(od -An -to1 -N$# "$file" 2>/dev/null | tr -s ' ' | sed 's/^ //; s/ $//')" = "$*" ]
}

# float_at FILE BYTES: the number of 32 bits there.
float_at() { od -An -tf4 -j"$2" -N4 "$1" 2>/dev/null | tr -d ' '; }
