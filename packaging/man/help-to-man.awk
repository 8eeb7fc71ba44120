# Turns what a program tells with --help into the body of a man page.
# top: 1 for the program's own help, whose headings become the page's sections; 0 for that of a verb. The help's lines are
# "Usage: ...", headings that end with a colon, under them terms with explanations, lines that begin with blanks, which
# stay as they are, and prose, whose lines are filled anew.

function roff(text) {
  gsub(/\\/, "\\e", text)
  gsub(/-/, "\\-", text)
  if (text ~ /^[.']/) text = "\\&" text
  return text
}

# What the lines that follow are: "item", "verbatim", "prose" or none of these.
function enter(next_mode) {
  if (mode == "verbatim" && next_mode != "verbatim") print ".fi"
  if (mode != "verbatim" && next_mode == "verbatim") print ".PP\n.nf"
  if (next_mode == "prose" && (mode != "prose" || held)) print ".PP"
  if (mode != next_mode || next_mode == "prose") held = 0
  mode = next_mode
}

function heading(text) {
  enter("")
  if (top && text ~ /^(Options|Examples|Exit status)$/) print ".SH " toupper(text)
  else if (top) print ".SS " roff(text)
  else if (text !~ /^(Options|Positionals)$/) print ".PP\n" roff(text) ":"
}

# The term ends where two blanks begin; an explanation may also stand on the next line alone.
function item(line,   at, term, explanation) {
  enter("item")
  at = match(line, /[^ ]  +[^ ]/)
  term = at ? substr(line, 1, at) : line
  explanation = at ? substr(line, at + RLENGTH - 1) : ""
  # A long term may run up to its explanation, which begins in the 31st column.
  if (!at && length(line) > 28 && substr(line, 29, 1) != " " && substr(line, 28, 1) == " ") {
    term = substr(line, 1, 27)
    explanation = substr(line, 29)
  }
  sub(/ +(REQUIRED)?$/, "", term)
  gsub(/,--/, ", --", term)
  print ".TP\n.B " roff(term)
  if (explanation != "") print roff(explanation)
}

/^Usage: / { in_body = 1; if (!top) print ".PP\n.B " roff(substr($0, 8)); next }
!in_body { if (!top) print roff($0); next }
/^"[^"]* --help" tells/ { next }
/^$/ { listing = ""; blank = 1; if (mode == "verbatim" || mode == "prose") held = 1; next }
blank && /^[^ ].*:$/ { held = 0; listing = substr($0, 1, length($0) - 1); if (listing != "Verbs") heading(listing); next }
listing == "Verbs" { next }
!top && /^  -h,--help / { next }
/^  -/ || (listing == "Positionals" && /^  [^ ]/) { held = 0; item(substr($0, 3)); next }
mode == "item" && /^            / { sub(/^ +/, ""); print roff($0); next }
# A command is not broken, and is told apart from what it is an example of.
/^Example: / { enter(""); blank = 0; print ".PP\nExample:\n.RS 2\n.nf\n" roff(substr($0, 10)) "\n.fi\n.RE"; next }
/^[^ ]/ { enter("prose"); blank = 0; print roff($0); next }
{
  enter("verbatim")
  if (held) print ""
  held = blank = 0
  # The page is indented as it is.
  sub(/^  /, "")
  print roff($0)
}
END { enter("") }
