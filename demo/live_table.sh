# A camera's temperatures as a table that grows while it streams: sourced by script/demo, after claims.sh.

# live_table COUNT: a line a second, as often as that. The CSV is kept as the output of run() is.
live_table() {
  set -- measure --watch -n "$1" --csv -q -c "$camera" --range middle "$picture_region"
  printf '\n$ keocam %s \\\n    %s\n' "${*% *}" "$picture_region"
  echo 'FRAMES/S   MIN °C  MEAN °C   MAX °C  CORE °C  LENS    RANGE'
  {
    status=0
    timeout --foreground 45 "$bin/keocam" "$@" || status=$?
    echo "$status" >"$scratch/status"
  } | tee "$scratch/out" | while IFS=, read -r time _ _ _ min mean max _ _ _ _ _ _ _ _ rate core lens_name range; do
    [ "$time" != time ] || continue
    lens_name=${lens_name#\"}
    printf '%8s %8s %8s %8s %8s  %-7s %s\n' "${rate:--}" "$min" "$mean" "$max" "$core" "${lens_name%\"}" "$range"
  done
  [ "$(cat "$scratch/status")" -eq 0 ] || { echo "keocam measure failed." >&2; exit 1; }
}
