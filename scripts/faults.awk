# Lists one fault for each line of C++ that can have one, in an order drawn by `seed`:
#   key<TAB>file<TAB>line<TAB>column<TAB>old<TAB>new
# to be sorted by its key. For scripts/mutate.sh. Leans on the format: clang-format sets an operator of two operands
# between blanks, but not the brackets of a template, a pointer or a reference.
BEGIN {
  # Own numbers at random, as those of awk differ from one awk to the next.
  state = (seed * 7919 + 12345) % 2147483646 + 1
  for (i = 0; i < 10; ++i) random(2)
  pairs = split("< <= > >= == != + - * / && || += -= *= /=", operators, " ")
}
function random(n) { state = (state * 16807) % 2147483647; return state % n }
function offer(column, old, new) { at[++offers] = column; olds[offers] = old; news[offers] = new }

# The line with nothing but blanks for its comments and "SSS" for its strings, so that columns stay.
function code(line,    out, i, c, two) {
  for (i = 1; i <= length(line); ++i) {
    c = substr(line, i, 1)
    two = substr(line, i, 2)
    if (raw != "") {
      if (substr(line, i, length(raw)) == raw) {
        for (i += length(raw) - 1; length(out) < i - 1;) out = out "S"
        out = out "\""
        raw = ""
      } else out = out "S"
    } else if (comment) {
      if (two == "*/") { comment = 0; ++i; out = out "  " } else out = out " "
    } else if (quote != "") {
      if (c == "\\") { ++i; out = out "SS" } else if (c == quote) { quote = ""; out = out "\"" } else out = out "S"
    } else if (two == "//") {
      break
    } else if (two == "/*") {
      comment = 1; ++i; out = out "  "
    } else if (two == "R\"") {
      raw = substr(line, i + 2)
      raw = ")" substr(raw, 1, index(raw, "(") - 1) "\""
      out = out "S\""; ++i
    } else if (c == "\"" || (c == "'" && (i == 1 || substr(line, i - 1, 1) !~ /[0-9A-Za-z_]/))) {
      quote = c; out = out "\""
    } else {
      out = out c
    }
  }
  quote = ""  # a string ends with its line
  return out
}

function operators_of(text,    padded, i, op, new, from, p, before, after) {
  padded = text " "
  for (i = 1; i <= pairs; ++i) {
    op = operators[i]
    new = i % 2 ? operators[i + 1] : operators[i - 1]
    for (from = 1; p = index(substr(padded, from), " " op " "); from = p + 1) {
      p += from - 1
      before = substr(padded, p - 1, 1)
      after = substr(padded, p + length(op) + 2, 1)
      # Texts can't be taken from each other.
      if (op ~ /^[+]/ && (before == "\"" || after == "\"")) continue
      offer(p + 1, op, new)
    }
  }
}

function words_of(text,    rest, from, word, before, after, number, new) {
  from = 1
  while (match(rest = substr(text, from), /[A-Za-z_][A-Za-z0-9_]*|[0-9]+[.]?[0-9]*[eE][-+]?[0-9]+|[0-9][0-9A-Za-z_.']*/)) {
    word = substr(rest, RSTART, RLENGTH)
    before = substr(text, 1, from + RSTART - 2)
    after = substr(rest, RSTART + RLENGTH, 1)
    if (word == "true") offer(from + RSTART - 1, word, "false")
    else if (word == "false") offer(from + RSTART - 1, word, "true")
    else if ((word == "min" || word == "max") && before ~ /std::$/ && after ~ /[(<]/)
      offer(from + RSTART - 1, word, word == "min" ? "max" : "min")
    else if (word ~ /^(0|[1-9][0-9]*)[uUlL]*$/ && length(word) < 10 && before !~ /[.]$/) {
      number = word
      sub(/[uUlL]+$/, "", number)
      offer(from + RSTART - 1, word, (number + 1) substr(word, length(number) + 1))
    } else if (word ~ /^[0-9]+[.][0-9]*([eE][-+]?[0-9]+)?[fF]?$/ || word ~ /^[0-9]+[eE][-+]?[0-9]+$/) {
      # By a twentieth: what is not seen then, no diver sees either.
      new = word + 0 == 0 ? "1.0" : sprintf("%.9g", word * 1.05)
      if (new !~ /[.e]/) new = new ".0"
      offer(from + RSTART - 1, word, new (word ~ /[fF]$/ ? "f" : ""))
    }
    from += RSTART + RLENGTH - 1
  }
}

function signs_of(text,    i, two, before) {
  for (i = 1; i < length(text); ++i) {
    two = substr(text, i, 2)
    before = i > 1 ? substr(text, i - 1, 1) : ""
    if (two == "++" || two == "--") { offer(i, two, two == "++" ? "--" : "++"); ++i }
    else if (two ~ /^![A-Za-z_(:*]/ && before !~ /[A-Za-z0-9_]/) offer(i, "!", "")
  }
}

# Whether the line stands in a function that returns a bool: from its head to the brace below it.
function in_bool(text,    indent) {
  if (text !~ /[^ ]/) return bool
  match(text, /^ */)
  indent = RLENGTH
  if (text ~ /^ *([[][[]nodiscard[]][]] )?((static|inline|constexpr|virtual) )*bool [A-Za-z_][A-Za-z0-9_:]*[(]/) {
    bool = 1
    boolIndent = indent
  } else if (bool && indent <= boolIndent) {
    bool = 0
  }
  return bool
}
function return_of(text,    value) {
  if (!match(text, /return [^;]+;/)) return
  value = substr($0, RSTART + 7, RLENGTH - 8)
  if (value == "true" || value == "false") return  # a word of its own
  if (inBool || text ~ /return [^;]*( (==|!=|<|<=|>|>=|&&|[|][|]) )[^;?]*;/) offer(RSTART + 7, value, "!(" value ")")
}

FNR == 1 { comment = bool = 0; raw = "" }
{
  text = code($0)
  inBool = in_bool(text)
  # A member that starts empty is set before it is read, or its start is told by no one.
  if (FILENAME ~ /[.]h$/ && text ~ /^ +[A-Za-z_][A-Za-z0-9_:<>, ]* [A-Za-z_][A-Za-z0-9_]* = (0|0[.]0|-1|false);/) next
  if (text ~ /^ *(#|using |namespace |template |friend )/ || text ~ /assert[(]|operator[^a-z]|virtual .*= 0;/) next
  offers = 0
  operators_of(text)
  words_of(text)
  signs_of(text)
  return_of(text)
  if (offers == 0) next
  i = random(offers) + 1
  printf "%d\t%s\t%d\t%d\t%s\t%s\n", random(2147483647), FILENAME, FNR, at[i], olds[i], news[i]
}
