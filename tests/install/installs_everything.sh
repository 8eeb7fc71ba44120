#!/bin/bash
# Installs a build and looks at what is there: installs_everything.sh CMAKE BUILD PREFIX LIBDIR HEADER...
set -euo pipefail
source=$(cd "$(dirname "$0")/../.." && pwd)
cmake=$1 build=$2 prefix=$3 libdir=$4
shift 4
headers=("$@")

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

rm -rf "$prefix"
"$cmake" --install "$build" --prefix "$prefix" >/dev/null

for file in bin/keocam bin/keocam-simulator "$libdir/libkeocam.so" "$libdir/pkgconfig/keocam.pc" \
  "$libdir/cmake/keocam/keocam-config.cmake" include/keocam/PvDevice.h "${headers[@]/#/include/keocam/}" \
  share/man/man1/keocam.1.gz share/man/man1/keocam-simulator.1.gz \
  share/bash-completion/completions/keocam share/bash-completion/completions/keocam-simulator; do
  [ -e "$prefix/$file" ] || fail "$file was not installed"
done

# Programs take the library by the name of its ABI version, and need no other file of the prefix to run.
soname=$(readelf -d "$prefix/$libdir/libkeocam.so" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p')
[[ $soname =~ ^libkeocam\.so\.[0-9]+ ]] || fail "the library's name for the loader is '$soname'"
[ -e "$prefix/$libdir/$soname" ] || fail "$soname was not installed"
for program in keocam keocam-simulator; do
  [[ $(env -i "$prefix/bin/$program" --version) == "$program "[0-9]* ]] || fail "$program does not tell its version"
done

# Every header that an installed one includes is installed too, and every one that users are told to include.
cd "$prefix/include/keocam"
while IFS=: read -r file line; do
  included=${line#*\"}
  [ -e "${included%\"*}" ] || fail "$file includes ${included%\"*}, which was not installed"
done < <(grep -rE '^#include "' . "$source/README.md" "$source/docs" "$source/examples")
if grep -rE '#include <(arv|glib|gio)' .; then fail "a header needs more than the library"; fi

# Nothing of this machine's folders gets into what other machines read.
if grep -rIlF "$build" "$prefix/$libdir" "$prefix/share"; then fail "an installed file names the build's folder"; fi

for page in "$prefix"/share/man/man1/*.gz; do
  warnings=$(gzip -dc "$page" | groff -k -K utf8 -man -Tutf8 -ww -z 2>&1) || fail "$page cannot be shown: $warnings"
  [ -z "$warnings" ] || fail "$page: $warnings"
  shown=$(gzip -dc "$page" | groff -k -K utf8 -man -Tutf8 -rLL=80n -P-cbou)
  if LC_ALL=C.UTF-8 grep -E '^.{81,}' <<<"$shown"; then fail "$page has lines of more than 80 columns"; fi
  # What the parser of options adds by itself, and words broken at a hyphen that is not theirs.
  if grep -E 'Needs:|Excludes:|\(Env:|[[:alpha:]]‐$' <<<"$shown"; then fail "$page shows what it should not"; fi
done

# A section for each verb, with its options.
page=$(gzip -dc "$prefix/share/man/man1/keocam.1.gz" | sed 's/\\-/-/g')
verbs=$("$prefix/bin/keocam" --help | sed -n '/^Verbs:/,/^$/s/^  \([a-z][a-z-]*\) .*/\1/p')
[ -n "$verbs" ] || fail "keocam --help tells of no verb"
for verb in $verbs; do
  grep -qx "\.SS keocam $verb" <<<"$page" || fail "the man page lacks the verb $verb"
  [ "$verb" != simulate ] || continue
  for option in $("$prefix/bin/keocam" "$verb" --help | sed -n 's/^  \(-.,\)\{0,1\}\(--[a-z-]*\).*/\2/p'); do
    grep -Eq "^\.B (.*, )?$option( |$)" <<<"$page" || fail "the man page lacks $option of $verb"
  done
done
