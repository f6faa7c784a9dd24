# Lists the one-line faults of C++ sources, one row each, separated by tabs:
#   FILE LINE KIND FAULTY-LINE
# Strings, characters and comments are masked first, so that operators are searched only in code.

function mask_of(line,    i, c, mask, quote) {
  quote = ""
  mask = ""
  for (i = 1; i <= length(line); ++i) {
    c = substr(line, i, 1)
    if (quote != "") {
      if (c == "\\") { mask = mask "\001\001"; ++i; continue }
      if (c == quote) { quote = ""; mask = mask c } else mask = mask "\001"
    } else if (c == "/" && substr(line, i + 1, 1) == "/") {
      while (length(mask) < length(line)) mask = mask " "
      return mask
    } else {
      # The quote in 1'000 does not start a character literal.
      if (c == "\"" || (c == "'" && substr(line, i - 1, 1) !~ /[0-9]/)) quote = c
      mask = mask c
    }
  }
  return mask
}

function fault(number, kind, text) {
  if (text != lines[number]) printf "%s\t%d\t%s\t%s\n", file, number, kind, text
}

# Each place where `from` is in the code becomes `to`.
function replaced(number, kind, from, to,    at, start) {
  start = 1
  while ((at = index(substr(masks[number], start), from)) > 0) {
    at += start - 1
    fault(number, kind, substr(lines[number], 1, at - 1) to substr(lines[number], at + length(from)))
    start = at + length(from)
  }
}

# Each whole word `from` becomes `to`.
function replaced_word(number, kind, from, to,    at, start, mask) {
  start = 1
  mask = masks[number]
  while ((at = index(substr(mask, start), from)) > 0) {
    at += start - 1
    if (substr(mask, at - 1, 1) !~ /[A-Za-z0-9_]/ && substr(mask, at + length(from), 1) !~ /[A-Za-z0-9_]/)
      fault(number, kind, substr(lines[number], 1, at - 1) to substr(lines[number], at + length(from)))
    start = at + length(from)
  }
}

# Whole numbers and characters plus one; a decimal digit more or less for texts.
function constants(number,    mask, start, at, size, value, before) {
  mask = masks[number]
  start = 1
  while (match(substr(mask, start), /[0-9][0-9A-Fa-fxXuU']*/)) {
    at = RSTART + start - 1
    size = RLENGTH
    before = at == 1 ? " " : substr(mask, at - 1, 1)
    start = at + size
    if (mask ~ /^ *virtual .*\) .*= 0;/) continue
    if (before ~ /[A-Za-z0-9_.]/ || substr(mask, start, 1) ~ /[A-Za-z_.]/) continue
    value = substr(lines[number], at, size)
    fault(number, "constant", substr(lines[number], 1, at - 1) "(" value " + 1)" substr(lines[number], start))
  }
  start = 1
  while (match(substr(mask, start), /'[^']+'/)) {
    at = RSTART + start - 1
    fault(number, "constant", substr(lines[number], 1, at - 1) "static_cast<char>(" substr(lines[number], at, RLENGTH) " + 1)" substr(lines[number], at + RLENGTH))
    start = at + RLENGTH
  }
}

function texts(number,    mask, start, at) {
  mask = masks[number]
  start = 1
  while (match(substr(mask, start), /"[^"]*"/)) {
    at = RSTART + start - 1
    fault(number, "text", substr(lines[number], 1, at) "~" substr(lines[number], at + 1))
    start = at + RLENGTH
  }
}

function balanced(mask,    copy) {
  copy = mask
  return gsub(/[({]/, "", copy) == gsub(/[)}]/, "", copy)
}

# The position of the parenthesis that closes the one at `open`, 0 without one.
function closing(mask, open,    depth, i, c) {
  depth = 0
  for (i = open; i <= length(mask); ++i) {
    c = substr(mask, i, 1)
    if (c == "(") ++depth
    if (c == ")" && --depth == 0) return i
  }
  return 0
}

function conditions(number,    mask, open, close_at, inner, start, at) {
  mask = masks[number]
  start = 1
  while (match(substr(mask, start), /(if|while) \(/)) {
    open = start + RSTART + RLENGTH - 2
    start = open
    close_at = closing(mask, open)
    if (close_at == 0) break
    inner = substr(mask, open, close_at - open)
    at = open
    if (match(inner, /; /)) at = open + RSTART  # after the declaration
    fault(number, "condition", substr(lines[number], 1, at) (at > open ? " " : "") "!(" substr(lines[number], at + 1, close_at - at - 1) ")" substr(lines[number], close_at))
    start = close_at
  }
  # A line that is a complete decision is deleted.
  if (mask ~ /^ *if \(.*\) (return|continue|break).*;$/ && balanced(mask)) fault(number, "deleted", "")
}

# The statement of a line that has exactly one.
function deletions(number,    mask) {
  mask = masks[number]
  sub(/ +$/, "", mask)
  if (!balanced(mask) || mask !~ /^ +[^ ].*;$/) return
  if (masks[number - 1] !~ /[;{}:)] *$/ && masks[number - 1] !~ /^ *$/) return
  if (mask ~ /^ +(return|using|static_assert|struct|class|enum|const|constexpr|static|template|virtual|friend|if|for|while|else|case|default)[ (]/) {
    if (mask ~ /^ +else .*;$/) fault(number, "deleted", "")
    return
  }
  if (mask ~ /^ +(break|continue);$/) { fault(number, "deleted", "{}"); return }
  if (mask ~ /^ +[^ ]*(\(.*\)|\+\+|--);$/ || mask ~ /^ +(\+\+|--|delete )/ || mask ~ /^ +[^ ]+ [-+|&^<>]*= .*;$/)
    fault(number, "deleted", "{}")
}

# Two neighbouring lines of the same form, such as rows of a table: this line gets the last word in which
# they differ.
function shape_of(mask,    shape) {
  shape = mask
  gsub(/[A-Za-z_\001][A-Za-z0-9_\001]*/, "w", shape)
  gsub(/[0-9][0-9A-Fa-fx]*/, "n", shape)
  return shape
}
# The line without its comment.
function code_of(number,    mask) {
  mask = masks[number]
  sub(/ +$/, "", mask)
  return substr(lines[number], 1, length(mask))
}
function swaps(number,    other, here, there, left, right, size, rest) {
  other = masks[number + 1] ~ /[A-Za-z]/ && shape_of(masks[number]) == shape_of(masks[number + 1]) ? number + 1 : number - 1
  if (other < 1 || masks[number] !~ /[A-Za-z]/ || shape_of(masks[number]) != shape_of(masks[other])) return
  here = code_of(number)
  there = code_of(other)
  rest = substr(lines[number], length(here) + 1)
  if (here == there) return
  # From the first difference to the last; of that only the last word.
  for (right = 0; substr(here, length(here) - right, 1) == substr(there, length(there) - right, 1); ++right) {}
  rest = substr(here, length(here) - right + 1) rest
  here = substr(here, 1, length(here) - right)
  there = substr(there, 1, length(there) - right)
  for (left = length(here); left > 0 && substr(here, left, 1) ~ /[A-Za-z0-9_]/; --left) {}
  for (size = length(there); size > 0 && substr(there, size, 1) ~ /[A-Za-z0-9_]/; --size) {}
  fault(number, "swapped", substr(here, 1, left) substr(there, size + 1) rest)
}

function answers(number) {
  replaced_word(number, "answer", "WBEM_E_NOT_FOUND", "WBEM_E_FAILED")
  replaced_word(number, "answer", "WBEM_E_FAILED", "WBEM_E_NOT_FOUND")
  replaced_word(number, "answer", "WBEM_E_INVALID_CLASS", "WBEM_E_FAILED")
  replaced_word(number, "answer", "WBEM_E_PROVIDER_FAILURE", "WBEM_E_FAILED")
  replaced_word(number, "answer", "WBEM_E_NOT_SUPPORTED", "WBEM_E_FAILED")
  replaced_word(number, "answer", "WBEM_E_INVALID_OBJECT_PATH", "WBEM_E_FAILED")
  replaced_word(number, "answer", "WBEM_E_INVALID_PARAMETER", "WBEM_E_FAILED")
  replaced_word(number, "answer", "WBEM_S_NO_ERROR", "WBEM_E_FAILED")
  replaced_word(number, "answer", "S_OK", "E_FAIL")
  replaced_word(number, "answer", "E_FAIL", "S_OK")
  replaced_word(number, "answer", "E_OUTOFMEMORY", "E_FAIL")
  replaced_word(number, "answer", "E_POINTER", "E_FAIL")
  replaced_word(number, "answer", "E_NOINTERFACE", "E_FAIL")
  replaced_word(number, "answer", "SUCCEEDED", "FAILED")
  replaced_word(number, "answer", "FAILED", "SUCCEEDED")
}

function operators(number) {
  replaced(number, "relation", " == ", " != ")
  replaced(number, "relation", " != ", " == ")
  replaced(number, "relation", " < ", " <= ")
  replaced(number, "relation", " <= ", " < ")
  replaced(number, "relation", " > ", " >= ")
  replaced(number, "relation", " >= ", " > ")
  replaced(number, "logic", " && ", " || ")
  replaced(number, "logic", " || ", " && ")
  if (masks[number] !~ /&&|!\(\(/) replaced(number, "logic", "(!", "(")
  if (masks[number] !~ / !=/) replaced(number, "logic", " !", " ")
  # Texts are joined by the same operators, which another one does not build.
  if (masks[number] !~ /"/) {
    replaced(number, "arithmetic", " + ", " - ")
    replaced(number, "arithmetic", " << ", " >> ")
  }
  replaced(number, "arithmetic", " - ", " + ")
  replaced(number, "arithmetic", " * ", " + ")
  replaced(number, "arithmetic", " / ", " * ")
  replaced(number, "arithmetic", "++", "--")
  replaced(number, "arithmetic", " & ", " | ")
  replaced(number, "arithmetic", " | ", " & ")
  replaced(number, "arithmetic", " ^ ", " | ")
  replaced_word(number, "constant", "true", "false")
  replaced_word(number, "constant", "false", "true")
}

function list_faults(    number) {
  for (number = 1; number <= count; ++number) masks[number] = mask_of(lines[number])
  masks[0] = masks[count + 1] = ""
  for (number = 1; number <= count; ++number) {
    if (masks[number] ~ /^ *$/ || masks[number] ~ /^ *(#|static_assert|namespace|using|template|extern "C"|const char\* raisedLine)/) continue
    operators(number)
    answers(number)
    constants(number)
    texts(number)
    conditions(number)
    deletions(number)
    swaps(number)
  }
}

FNR == 1 {
  if (file != "") list_faults()
  file = FILENAME
  delete lines
  delete masks
  count = 0
}
{ lines[++count] = $0 }
END { list_faults() }
