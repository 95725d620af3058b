#!/usr/bin/awk -f
# Adds to a header what doxygen cannot see for itself:
# - the comment at the head of the file is also that of the unit's namespace;
# - a ruler (// --- Title ---) begins a group of members, up to the next ruler or the end of its block;
# - copies, moves, comparisons that are the compiler's own and destructors need no comment, and are left out then.

/^\/\/\/ @file/ { inHead = 1; print; next }
inHead && /^\/\/\// { head = head $0 "\n" }
!/^\/\/\// { inHead = 0 }

/^ *\/\/ --- / {
  close_group()
  title = $0
  sub(/^ *\/\/ --- /, "", title)
  sub(/ -+$/, "", title)
  print "/// @name " title "\n/// @{\n"
  open = 1
  next
}
/^ *(public|protected|private):$/ || /^}/ { close_group() }
/^namespace .*::/ { printf "%s", head }
/^ *(virtual )?~[A-Za-z]+\(.*;$/ || /= default;$/ {
  if (before !~ /\/\/\//) { before = ""; print ""; next }
}
{ before = $0; print }

function close_group() {
  if (open) print "/// @}"
  open = 0
}
