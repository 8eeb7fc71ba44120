#!/bin/bash
# Completes words as bash does when Tab is pressed: completion_offers.sh COMPLETION KEOCAM SIMULATOR.
set -uo pipefail
completion=$1 keocam=$2 simulator=$3
. "$completion"
cd "$(dirname "$0")" || exit 1

failures=0
# offers "WORDS" WORD...: behind the words of a command line, of which the last is being typed.
offers() {
  local words=$1 offered
  shift
  eval "COMP_WORDS=($words)"
  COMP_WORDS[0]=${!COMP_WORDS[0]}
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  COMPREPLY=()
  _keocam
  offered=${COMPREPLY[*]}
  if [[ $offered != "$*" ]]; then
    echo "FAILED: '$words' offers '$offered' in place of '$*'" >&2
    failures=$((failures + 1))
  fi
}

offers "keocam strea" stream
offers "keocam -q strea" stream
offers "keocam range ''" show set
offers "keocam range set ''" low middle high
offers "keocam core info --cam" --camera
offers "keocam stream --pic" --picture
offers "keocam stream --frames ''"
offers "keocam stream --picture completion_" completion_offers.sh
offers "keocam measure --unit ''" C K F
offers "keocam measure --unit = ''" C K F
offers "keocam measure --json ''"
offers "keocam snapshot CMake" CMakeLists.txt
offers "keocam snapshot --palette w" white-hot
offers "keocam get ffc-m" ffc-mode
offers "keocam set ffc-m" ffc-mode=
offers "keocam set palette =" white-hot black-hot fusion rainbow glowbow ironbow-1 ironbow-2 sepia color-1 color-2 \
  ice-and-fire rain red-hot green-hot
offers "keocam set palette = ironbow" ironbow-1 ironbow-2
offers "keocam set contrast=10 palette = sep" sepia
offers "keocam set contrast = 1"
offers "keocam calibration check CMake" CMakeLists.txt
offers "keocam calibration make --fol" --folder
offers "keocam simulate --sce" --scene --scene-range
offers "keocam no-such-verb -" -h --help --version -q --quiet -v --verbose
offers "simulator cal" calibration
offers "simulator calibration --gr" --grammar
offers "simulator --uart-pacing ''" on off
offers "simulator --scene hot" hot-spot
offers "simulator --size 64" 640x512
offers "simulator --size 16" 160x128
offers "simulator --model 324-" 324-fast 324-slow
offers "keocam simulate --model 324-f" 324-fast
offers "simulator --core-calibration ../install/"

# Whatever verbs there are, all are offered, and for each its options.
# shellcheck disable=SC2046 # a word per verb
offers "keocam ''" $("$keocam" --help | sed -n '/^Verbs:/,/^$/s/^  \([a-z][a-z-]*\) .*/\1/p')
for verb in "${COMPREPLY[@]}"; do
  offers "keocam $verb --hel" --help
done

exit $((failures > 0))
