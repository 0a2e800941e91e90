#!/bin/sh
# words.sh FILE.pdf: the words of each page and where they stand. A line for the words of one height, from above to below:
# "TOP-BOTTOM  LEFT-RIGHT WORD  LEFT-RIGHT WORD ...", in points, rounded to a tenth.
set -eu
pdftotext -bbox "$1" - | awk '
  function part(name,   text) {
    match($0, name "=\"[0-9.-]+\"")
    text = substr($0, RSTART + length(name) + 2, RLENGTH - length(name) - 3)
    return sprintf("%.1f", text)
  }
  /<page / { print ++page, 0, 0, 0, 0, "page " page ", " part("width") " x " part("height") }
  /<word / {
    word = $0; sub(/^[^>]*>/, "", word); sub(/<\/word>.*$/, "", word)
    gsub(/&lt;/, "<", word); gsub(/&gt;/, ">", word); gsub(/&quot;/, "\"", word); gsub(/&apos;/, "\x27", word); gsub(/&#39;/, "\x27", word)
    gsub(/&amp;/, "\\&", word)
    print page, part("yMin"), part("yMax"), part("xMin"), part("xMax"), word
  }' | LC_ALL=C sort -s -k1,1n -k2,2n -k3,3n -k4,4n | awk '
  function out() { if (line != "") print line; line = "" }
  $2 == 0 && $3 == 0 { out(); sub(/^[0-9]+ 0 0 0 0 /, ""); print; at = ""; next }
  { height = $2 "-" $3; word = $0; sub(/^[^ ]+ [^ ]+ [^ ]+ [^ ]+ [^ ]+ /, "", word)
    if (height != at) { out(); line = height; at = height }
    line = line "  " $4 "-" $5 " " word }
  END { out() }'
