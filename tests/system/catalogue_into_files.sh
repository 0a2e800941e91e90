#!/bin/sh
# catalogue_into_files.sh PROGRAMS: each report of the catalogue becomes a sound PDF, with nobody at a screen; counts and sums in the
# files of values are those of the tables, asked by another way.
set -u
programs=$1
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen
failures=0
complain() { printf '%s\n' "$*" >&2; failures=$((failures + 1)); }

books=$work/books/data/orv1/customer.zdb
"$programs/suitefiles" demo "$work/books" --company 1 --customers 300 --seed 5 --date "$(date +%F)" >/dev/null || exit 1
value() { "$programs/suitefiles" sql "$books" "$1" --no-header; }
report() { "$programs/custsearch" report "$@" --data "$work/books" >"$work/said" 2>&1; }

reports=$(value "SELECT Count(*) AS N FROM CUReports")
[ "$reports" -ge 22 ] || complain "only $reports reports"
for place in $(seq 1 "$reports"); do
  report "$place" --to "$work/$place.pdf" || complain "report $place: $(cat "$work/said")"
  qpdf --check "$work/$place.pdf" >/dev/null 2>&1 || complain "report $place: no sound PDF"
done

# count NAME STATEMENT [WHICH]: as many rows as the statement counts.
count() {
  report "$1" --to "$work/count.csv" --customers "${3:-all}" || complain "$1: $(cat "$work/said")"
  rows=$(($(wc -l <"$work/count.csv") - 1))
  wanted=$(value "$2")
  [ "$rows" = "$wanted" ] || complain "$1, ${3:-all}: $rows rows, not $wanted"
}
# sum COLUMN STATEMENT: of the file that count has left, in cents.
sum() {
  was=$(awk -F, -v column="$1" 'NR == 1 { for (i = 1; i <= NF; i++) if ($i == column) at = NF - i } NR > 1 { sub(/\r$/, ""); total += $(NF - at) } END { printf "%.0f", total * 100 }' "$work/count.csv")
  wanted=$(value "$2" | awk '{ total += $1 } END { printf "%.0f", total * 100 }')
  [ "$was" = "$wanted" ] || complain "sum of $1: $was cents, not $wanted"
}
count ARCusLst.Rpt "SELECT Count(*) AS N FROM Customers"
count ARCusLst.Rpt "SELECT Count(*) AS N FROM Customers WHERE State='MN'" "State='MN'"
count ARCusLst.Rpt "SELECT Count(*) AS N FROM Customers WHERE AcctNum=7" 7
count "Balances and Credit Limits" "SELECT Count(*) AS N FROM Customers"
count ARCusHld.Rpt "SELECT Count(*) AS N FROM Customers WHERE CreditHold=True"
count ARCusPay.Rpt "SELECT Count(*) AS N FROM Customers"
sum "To date" "SELECT PaidToDate FROM Customers"
sum Balance "SELECT CurrBalance FROM Customers"
count ARCusPho.Rpt "SELECT Count(*) AS N FROM Phones"
count ARAltAdr.Rpt "SELECT Count(*) AS N FROM Addresses"
count ARCustCC.Rpt "SELECT Count(*) AS N FROM CustCreditCards"
count ARLabRat.Rpt "SELECT Count(*) AS N FROM CustLaborRates"
count ARCusDpt.Rpt "SELECT Count(*) AS N FROM CustLaborRates"
count ARCusCod.Rpt "SELECT Count(*) AS N FROM CustCodes"
count ARCusTyp.Rpt "SELECT Count(*) AS N FROM CustCodes"
count ARCustKW.Rpt "SELECT Count(*) AS N FROM Lookups"
count ARCusKey.Rpt "SELECT Count(*) AS N FROM Lookups"
count ARCusPar.Rpt "SELECT Count(*) AS N FROM SuperCustomers"
count ARCusMap.Rpt "SELECT Count(*) AS N FROM Customers"
count ARML5260.RPT "SELECT Count(*) AS N FROM Customers"

# No number of a card leaves as a whole.
report ARCustCC.Rpt --to "$work/cards.pdf"
value "SELECT CCNumber FROM CustCreditCards" | sort -u >"$work/numbers"
pdftotext "$work/cards.pdf" - | grep -qFf "$work/numbers" && complain "a card's number is on paper"

# What goes wrong is told, and leaves no file.
fails() {
  status=$1
  shift
  report "$@"
  was=$?
  [ "$was" = "$status" ] || complain "$*: status $was, not $status"
  [ -s "$work/said" ] || complain "$*: nothing said"
}
fails 2 "No such report" --to "$work/x.pdf"
fails 2 1 --to "$work/x.txt"
fails 1 1 --to "$work/x.pdf" --formula Nonsense=3
fails 1 1 --to "$work/none/x.pdf"
fails 1 ARCusLst.Rpt --to "$work/x.pdf" --customers "Nonsense ="
fails 1 ARCusLst.Rpt --to "$work/x.pdf" --customers 999999
printf 'report 1\ntitle "x\n' >"$work/books/ARCusZip.Rpt"
fails 1 ARCusZip.Rpt --to "$work/x.pdf"
[ -e "$work/x.pdf" ] && complain "a file was left"

[ "$failures" = 0 ]
