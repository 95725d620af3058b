#!/usr/bin/awk -f
# Reads a header as its authors mean it, and writes it as doxygen takes it:
# - what the head of the file says (@file) is said of the unit's namespace too;
# - a comment serves the overloads that follow it, and the whole of a block of declarations (up to an empty
#   line) that has no other;
# - a plain comment behind an empty line is a heading: its first sentence, or the words of a ruler, are the
#   title of the members below, the rest is what holds for all of them;
# - GetNAME and SetNAME without a comment are the accessors of the property NAME;
# - destructors, copies, comparisons and overrides without a comment say nothing new and are left out.

# The lines first, so that it can be seen what follows.
{ lines[++count] = $0 }
END { for (at = 1; at <= count; ++at) take(lines[at]) }

# Code without the comment behind it and without what stands in quotes.
function code(line) {
  gsub(/"[^"]*"/, "", line)
  sub(/ *\/\/.*/, "", line)
  return line
}

function balance(line,   opened) {
  opened = gsub(/[({]/, "", line)
  return opened - gsub(/[)}]/, "", line)
}

function functionName(line) { return match(line, /[A-Za-z_0-9]+\(/) ? substr(line, RSTART, RLENGTH) : "" }

# Whether the declarations from line i up to the next empty line have no comment.
function isBlock(i) {
  for (; i <= count && lines[i] !~ /^ *$/; ++i)
    if (lines[i] ~ /^ *\/\/\//) return 0
  return 1
}

function closeGroups(indent,   i) {
  for (i in open)
    if (i + 0 >= indent) {
      print "/// @}"
      delete open[i]
    }
}

function openGroup(   title) {
  sub(/^--- /, "", heading)
  match(heading, / -+\n|\. |\.?\n/)
  closeGroups(headingIndent)
  title = substr(heading, 1, RSTART - 1)
  gsub(/`/, "", title)
  print "\n/// @name " title
  heading = substr(heading, RSTART + RLENGTH)
  sub(/\n$/, "", heading)
  gsub(/\n/, "\n/// ", heading)
  if (heading != "") print "/// " heading
  print "/// @{\n"
  open[headingIndent] = 1
  heading = ""
}

function take(line,   text, indent) {
  text = line
  sub(/^ +/, "", text)
  indent = length(line) - length(text)
  if (text ~ /^\/\/\/ @file/ || (inHead && text ~ /^\/\/\//)) {
    if (inHead) head = head line "\n"
    inHead = 1
    print line
    return
  }
  inHead = 0
  if (text == "") {
    comment = ""
    afterEmpty = 1
    if (heading == "") print line
  } else if (text ~ /^\/\/ / && (afterEmpty || inHeading) && !private) {
    if (!inHeading) headingIndent = indent
    heading = heading substr(text, 4) "\n"
    inHeading = 1
    afterEmpty = 0
  } else {
    if (heading != "") { openGroup(); afterEmpty = 1 }
    inHeading = 0
    if (text ~ /^\/\/\//) takeComment(line)
    else if (text ~ /^(public|protected|private):$/) takeAccess(line, text, indent)
    else if (text ~ /^}/ && depth == 0) takeEnd(line, text, indent)
    else takeCode(line, text)
  }
}

function takeComment(line) {
  if (!inComment) {
    comment = ""
    first = afterEmpty
  }
  comment = comment line "\n"
  inComment = 1
  afterEmpty = 0
  print line
}

function takeAccess(line, text, indent) {
  private = text ~ /^private/
  closeGroups(indent)
  comment = ""
  inComment = 0
  afterEmpty = 1
  print line
}

function takeEnd(line, text, indent) {
  closeGroups(text ~ /namespace/ ? 0 : indent + 1)
  private = inComment = 0
  comment = ""
  print line
}

function saysNothingNew(plain, text) {
  if (inComment) return 0
  return plain ~ /= (delete|default);$/ || plain ~ /^(virtual )?~/ || plain ~ /^friend / || plain ~ / override/ || \
         (text ~ /^using [A-Za-z]+::[A-Za-z]+;$/ && lines[at] ~ /^ /)
}

# Whether the statement goes on behind this line.
function follow(plain) {
  depth += balance(plain)
  unfinished = depth == 0 && plain !~ /[;}]$/ && plain !~ /^ *[A-Z_]+$/
}

function takeCode(line, text,   plain, starts, name) {
  plain = code(text)
  starts = depth == 0 && !unfinished
  afterEmpty = 0
  if (starts && text ~ /^namespace .*::/) printf "%s", head
  if (starts && text !~ /;$/ && text ~ /^(class|struct|namespace|#)/) {
    private = inComment = 0
    comment = ""
    afterEmpty = text ~ /{$/
    print line
    return
  }
  if (starts) dropped = saysNothingNew(plain, text)
  if (dropped) {
    print ""
    follow(plain)
    return
  }
  if (starts) {
    name = functionName(plain)
    if (inComment) serves = first && isBlock(at)
    else if (comment != "" && text !~ /\/\/\/</ && (serves || (name != "" && name == lastName)))
      printf "%s", comment
    else if (name ~ /^[GS]et[A-Z]/)
      print "/// " (name ~ /^Get/ ? "Gives" : "Sets") " the property " substr(name, 4, length(name) - 4) "."
    else if (text ~ / GUID IID /)
      print "/// The interface is asked for by this identifier."
    lastName = name
    inComment = 0
  }
  print line
  follow(plain)
  if (text ~ /^(class|struct) .*{$/) {  # of a template
    depth = unfinished = 0
    comment = ""
    afterEmpty = 1
  }
}
