# Completion for keocam and keocam-simulator in bash. What there is to complete the programs tell with --help: nothing
# here has to follow their verbs, options and settings.

# The functions named _keocam_..._in read a help text.

_keocam_verbs_in() { awk '/^Verbs:/ { on = 1; next } /^$/ { on = 0 } on && /^  [^ ]/ { print $1 }'; }

_keocam_options_in() { awk '/^  -/ { count = split($1, names, ","); for (i = 1; i <= count; ++i) print names[i] }'; }

# "FILE  What to write" of the option named; nothing of one that takes no argument.
_keocam_argument_in() {
  awk -v option="$1" '
    text && sub(/^             +/, " ") { text = text $0; next }
    text { exit }
    /^  -/ && match($0, /^  [^ ]+ [^ ]/) {
      count = split($1, names, ",")
      for (i = 1; i <= count; ++i) if (names[i] == option) text = substr($0, RLENGTH)
    }
    END { if (text) print text }'
}

# The same of the first argument that is no option.
_keocam_positional_in() {
  awk '/^Positionals:/ { on = 1; next } /^$/ { on = 0 } on && sub(/^  /, "") { sub(/ REQUIRED/, ""); print; exit }'
}

# The table of settings, a line each, without the blanks that align it.
_keocam_settings_in() {
  awk '/^  SETTING / { on = 1; next }
    /^$/ { on = 0 }
    on && /^  [^ ]/ { if (row) print row; row = "" }
    on { $1 = $1; row = row ? row " " $0 : $0 }
    END { if (row) print row }'
}

_keocam_scenes_in() { awk '/^Scenes/ { on = 1; next } /^$/ { on = 0 } on && /^  [^ ]/ && !/^  in / { print $1 }'; }

_keocam_models_in() { awk 'NR > 1 { print $1 }'; }

# The choices that an explanation tells: "Which one: a, b or c; else d". None if it is about something else.
_keocam_choices() {
  [[ $1 == *", "* ]] || return
  sed -E 's/^ *([^:]*: +)?//; s/;.*//; s/ \[.*//; s/ or /, /; s/, /\n/g' <<<"$1" | grep -Ex '[[:alnum:]-]+'
}

# From here on: the variables of _keocam.

_keocam_reply() { mapfile -t COMPREPLY < <(compgen "$@" -- "$current"); }

# Words for an argument such as "FILE  What to write".
_keocam_complete_argument() {
  local name=${1%% *} explanation=${1#* }
  case $name in
    FILE*)
      compopt -o filenames 2>/dev/null
      _keocam_reply -f
      ;;
    DIR | FOLDER)
      compopt -o filenames 2>/dev/null
      _keocam_reply -d
      ;;
    NAME\[:*)
      compopt -o nospace 2>/dev/null
      _keocam_reply -W "$(_keocam_scenes_in <<<"$help")"
      ;;
    MODEL) _keocam_reply -W "$("$program" "${path[@]}" --list-models 2>/dev/null | _keocam_models_in)" ;;
    *\|*) _keocam_reply -W "${name//|/ }" ;;
    *) _keocam_reply -W "$(_keocam_choices "$explanation")" ;;
  esac
}

# A setting's name, or its value if it stands before "=".
_keocam_complete_setting() {
  local settings suffix=
  settings=$(_keocam_settings_in <<<"$help")
  if [[ -n $assigned ]]; then
    _keocam_reply -W "$(_keocam_choices "$(sed -n "s/^$assigned //p" <<<"$settings")")"
    return
  fi
  if [[ $help == *"[NAME=VALUE"* ]]; then
    suffix='='
    compopt -o nospace 2>/dev/null
  fi
  _keocam_reply -S "$suffix" -W "$(cut -d' ' -f1 <<<"$settings")"
}

_keocam() {
  local program=${COMP_WORDS[0]/#\~/$HOME} current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local help verbs word argument assigned='' path=()

  # "=" is a word of its own: what stands before it is what gets the value.
  if [[ $current == '=' ]]; then
    assigned=$previous current=
  elif [[ $previous == '=' ]]; then
    assigned=${COMP_WORDS[COMP_CWORD - 2]}
  fi

  # Down to the verb that the word belongs to.
  help=$("$program" --help 2>/dev/null) || return
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    verbs=$(_keocam_verbs_in <<<"$help")
    # The simulator's one verb stands in no list.
    [[ $help == *$'\nUsage: keocam-simulator [OPTIONS]'* ]] && verbs=calibration
    grep -Fqx -- "$word" <<<"$verbs" || continue
    path+=("$word")
    help=$("$program" "${path[@]}" --help 2>/dev/null) || return
  done

  verbs=$(_keocam_verbs_in <<<"$help")
  argument=$(_keocam_argument_in "${assigned:-$previous}" <<<"$help")
  if [[ -n $argument ]]; then
    _keocam_complete_argument "$argument"
  elif [[ $current == -* ]]; then
    _keocam_reply -W "$(_keocam_options_in <<<"$help")"
  elif [[ -n $verbs ]]; then
    _keocam_reply -W "$verbs"
  elif [[ $help == *$'\n  SETTING '* ]]; then
    _keocam_complete_setting
  elif [[ $help == *$'\nUsage: keocam-simulator [OPTIONS]'* ]]; then
    _keocam_reply -W calibration
  else
    _keocam_complete_argument "$(_keocam_positional_in <<<"$help")"
  fi
}

complete -F _keocam keocam keocam-simulator
