#!/bin/sh
# golden_pages.sh PROGRAMS GOLDEN: each report of the catalogue over the fixed company is, word for word and place for place, the page
# that somebody has looked at; another reader of PDF files finds the same words; groups and totals are those of the tables.
# What is to change is made anew by remake.sh, and read before it is kept.
set -u
programs=$1
golden=$2
here=$(dirname "$0")
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT
failures=0
complain() { printf '%s\n' "$*" >&2; failures=$((failures + 1)); }

"$here/make.sh" "$programs" "$work" || exit 1
(cd "$golden" && ls ./*.txt) >"$work/wanted"
(cd "$work" && ls ./*.txt) >"$work/made"
diff "$work/wanted" "$work/made" >&2 || complain "other reports than those that were looked at"
for file in "$golden"/*.txt; do
  name=$(basename "$file" .txt)
  diff "$file" "$work/$name.txt" >&2 || complain "$name: other pages than those that were looked at"
done

# Words alone, one a line, in an order that both readers agree on.
for file in "$work"/*.txt; do
  name=$(basename "$file" .txt)
  sed -e '/^page /d' -e 's/^[0-9.-]*//' "$file" | sed 's/  [0-9.-]*-[0-9.-]* /\n/g' | grep -v '^$' | sort >"$work/words"
  mutool draw -q -F txt "$work/$name.pdf" 2>/dev/null | tr -s ' \t\f\r' '\n' | grep -v '^$' | sort >"$work/words.other"
  diff "$work/words" "$work/words.other" >"$work/words.differ" || complain "$name: another reader finds other words: $(head -n 4 "$work/words.differ")"
done

value() { "$programs/suitefiles" sql "$work/company/data/orv1/${2:-customer.zdb}" "$1" --no-header; }
cents() { awk '{ gsub(/,/, ""); total += $1 } END { printf "%.0f", total * 100 }'; }
# total REPORT LABEL FIELD STATEMENT: the last line that begins with LABEL has in its FIELD (counted from the end) the sum of the
# statement's rows.
total() {
  was=$(pdftotext -layout "$work/$1.pdf" - | grep -E "^ *$2" | tail -n 1 | awk -v back="$3" '{ print $(NF - back) }' | cents)
  wanted=$(value "$4" | cents)
  [ "$was" = "$wanted" ] || complain "$1: total $3 of $2 is $was hundredths, not $wanted"
}
# groups REPORT FIRST STATEMENT: heads (lines that begin FIRST points from the left) and counts are those of the statement's rows, each
# the text of its group's head.
groups() {
  awk -v first="$2-" '
    /^page / { next }
    { at = $2; line = $0; sub(/^[^ ]*/, "", line); gsub(/  [0-9.]*-[0-9.]* /, " ", line); sub(/^ /, "", line) }
    index(at, first) == 1 { head = line }
    line ~ /^[0-9]+ (customers?|child|children)( |$)/ { split(line, words, " "); print words[1], head }' "$work/$1.txt" | sort >"$work/groups"
  value "$3" | tr -s ' \t' ' ' | sed 's/^ //; s/ $//' | sort | uniq -c | sed 's/^ *//' | sort >"$work/groups.wanted"
  [ -s "$work/groups.wanted" ] || complain "$1: no groups to compare"
  diff "$work/groups.wanted" "$work/groups" >&2 || complain "$1: other groups than the tables have"
}

rows() { echo "SELECT Count(*) AS N FROM $1"; }
total ARCusPho Phones 0 "$(rows Phones)"
total ARAltAdr Addresses 0 "$(rows Addresses)"
total ARCustCC Cards 0 "$(rows CustCreditCards)"
total ARLabRat Rates 0 "$(rows CustLaborRates)"
total ARCusCod Types 0 "$(rows CustCodes)"
total ARCustKW 'Key words' 0 "$(rows Lookups)"
total ARCusLst 'Customers +[0-9]' 0 "$(rows Customers)"
total ARCusBal '[0-9]+ customers' 3 "$(rows Customers)"
total ARCusBal '[0-9]+ customers' 1 "SELECT CurrBalance FROM Customers"
over="Creditlimit > 0 AND CurrBalance > Creditlimit"
total ARCusBal '[0-9]+ customers' 0 "SELECT CurrBalance - Creditlimit AS N FROM Customers WHERE $over"
total ARCusBal '[0-9]+ over their limit' 3 "$(rows "Customers WHERE $over")"
total ARCusHld 'Customers +[0-9]' 1 "$(rows 'Customers WHERE CreditHold=True')"
total ARCusHld 'Customers +[0-9]' 0 "SELECT CurrBalance FROM Customers WHERE CreditHold=True"
total ARCusPay 'Customers +[0-9]' 5 "$(rows Customers)"
total ARCusPay 'Customers +[0-9]' 4 "SELECT CurrBalance FROM Customers"
total ARCusPay 'Customers +[0-9]' 3 "SELECT PaidThisMonth FROM Customers"
total ARCusPay 'Customers +[0-9]' 2 "SELECT PaidThisYear FROM Customers"
total ARCusPay 'Customers +[0-9]' 1 "SELECT PaidLastYear FROM Customers"
total ARCusPay 'Customers +[0-9]' 0 "SELECT PaidToDate FROM Customers"
total ARCusNew 'Customers +[0-9]' 0 "$(rows 'Customers WHERE EntryDate > #3/9/2025#')"
total ARCusIna 'Customers +[0-9]' 0 "$(rows 'Customers WHERE LastOrdDate Is Null OR LastOrdDate < #3/9/2025#')"
total ARCusExm 'Customers +[0-9]' 0 "$(rows 'Customers WHERE ExemptExpireDate <= #6/7/2026#')"
total ARCusCCX Cards 0 "$(rows "CustCreditCards WHERE CCYear < '2026' OR (CCYear = '2026' AND CCMonth <= '05')")"
total ARCusTyp 'Customers +[0-9]' 0 "$(rows CustCodes)"
total ARCusKey 'Customers +[0-9]' 0 "$(rows Lookups)"
total ARCusMap 'Customers +[0-9]' 0 "$(rows Customers)"
total ARCusZip 'Customers +[0-9]' 0 "$(rows Customers)"
total ARCusDpt Rates 0 "$(rows CustLaborRates)"
total ARCusPar Children 0 "$(rows SuperCustomers)"

groups ARCusTyp 41.8 "SELECT DataCodes.Description FROM CustCodes INNER JOIN DataCodes ON CustCodes.CustCodes = DataCodes.Code"
groups ARCusKey 41.8 "SELECT Lookups.[Text] FROM Lookups"
groups ARCusMap 41.8 "SELECT IIf(Len(Locations.Location) > 0, Customers.MapCode & ' ' & Locations.Location, 'No map code') AS Head FROM Customers LEFT JOIN Locations ON Customers.MapCode = Locations.MapCode"
groups ARCusZip 41.8 "SELECT IIf(Len(Zip) > 0, Zip & ' ' & City, 'No ZIP') AS Head FROM Customers"
groups ARCusNew 41.8 "SELECT Format(EntryDate, 'mmmm yyyy') AS Head FROM Customers WHERE EntryDate > #3/9/2025#"
groups ARCusPar 41.8 "SELECT Customers.FirstName & ' ' & Customers.LastName & ' ' & Customers.AcctNum AS Head FROM Customers INNER JOIN SuperCustomers ON Customers.AcctNum = SuperCustomers.Primary"
# Department names lie in another file.
value "SELECT DeptNumber, DeptDescription FROM Departments" GL.zdb >"$work/departments"
value "SELECT Dept FROM CustLaborRates" | sort | uniq -c | while read -r count department; do
  printf '%s %s\n' "$count" "$(awk -F '\t' -v wanted="$department" '$1 == wanted { print $1 " " $2 }' "$work/departments")"
done | sort >"$work/groups.wanted"
awk '/^page / { next } { at = $2; line = $0; sub(/^[^ ]*/, "", line); gsub(/  [0-9.]*-[0-9.]* /, " ", line); sub(/^ /, "", line) }
  index(at, "41.8-") == 1 { head = line } line ~ /^[0-9]+ customers?$/ { print $3, head }' "$work/ARCusDpt.txt" | sort >"$work/groups"
diff "$work/groups.wanted" "$work/groups" >&2 || complain "ARCusDpt: other groups than the tables have"

# What each parent's children owe.
pdftotext -layout "$work/ARCusPar.pdf" - | awk '/children|child$| child / && $1 ~ /^[0-9]+$/ && $2 ~ /^child/ { print $NF }' | cents >"$work/owed"
value "SELECT Customers.CurrBalance FROM Customers INNER JOIN SuperCustomers ON Customers.AcctNum = SuperCustomers.Subordinate" | cents |
  diff - "$work/owed" >&2 || complain "ARCusPar: other balances than the children's"

[ "$failures" = 0 ]
