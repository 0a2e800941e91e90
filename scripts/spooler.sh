#!/bin/sh
# Printing on a real spooler: cups with its printer of PDF files, in a configuration of its own beside whatever the machine has. Pages,
# copies, a range of pages and the printer's name are looked up in what came out. Needs the packages cups, cups-client and
# printer-driver-cups-pdf, and root, as whose child the spooler prints.
#
# Build print_report first: cmake --build --preset default --target print_report
#
#   scripts/spooler.sh [PROGRAMS]
set -eu
cd "$(dirname "$0")/.."
programs=${1:-build/default/bin}
for program in cupsd lpadmin lpstat; do
  command -v "$program" >/dev/null 2>&1 || [ -x "/usr/sbin/$program" ] || { echo "There is no $program here." >&2; exit 77; }
done
[ "$(id -u)" = 0 ] || { echo "The spooler needs root." >&2; exit 77; }
work=$(mktemp -d)
chmod 755 "$work"
spooler=""
stop() {
  [ -n "$spooler" ] && kill "$spooler" 2>/dev/null
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap stop EXIT
failures=0
complain() { printf '%s\n' "$*" >&2; failures=$((failures + 1)); }

mkdir -p "$work/etc" "$work/spool/tmp" "$work/cache" "$work/run" "$work/state" "$work/log"
chmod 1777 "$work/spool/tmp"
# Where its printer puts files for root; it takes no other place from a private configuration.
out=$(getent passwd root | cut -d: -f6)/PDF
cat >"$work/etc/cupsd.conf" <<END
Listen $work/run/cups.sock
WebInterface No
Browsing Off
LogLevel warn
DefaultAuthType None
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
END
cat >"$work/etc/cups-files.conf" <<END
ServerRoot $work/etc
RequestRoot $work/spool
TempDir $work/spool/tmp
CacheDir $work/cache
StateDir $work/state
AccessLog $work/log/access
ErrorLog $work/log/error
PageLog $work/log/page
Group lp
SystemGroup root
Sandboxing relaxed
FileDevice Yes
END
/usr/sbin/cupsd -f -c "$work/etc/cupsd.conf" -s "$work/etc/cups-files.conf" >"$work/log/said" 2>&1 &
spooler=$!
export CUPS_SERVER="$work/run/cups.sock"
for _ in 1 2 3 4 5 6 7 8 9 10; do
  lpstat -r >/dev/null 2>&1 && break
  sleep 0.5
done
lpstat -r >/dev/null 2>&1 || { cat "$work/log/said" "$work/log/error" >&2; echo "The spooler did not start." >&2; exit 1; }
ppd=$(find /usr/share/ppd/cups-pdf -name '*opt*.ppd' 2>/dev/null | head -n 1)
/usr/sbin/lpadmin -p FrontOffice -E -v cups-pdf:/ ${ppd:+-P "$ppd"}
/usr/sbin/lpadmin -d FrontOffice

"$programs/suitefiles" demo "$work/books" --company 1 --customers 120 --seed 3 >/dev/null

came_out() { find "$out" -name '*.pdf' -newer "$work/before" 2>/dev/null | head -n 1; }
# job COPIES FROM TO: prints the customer list and waits for what comes out of it.
job() {
  touch "$work/before"
  named=$(QT_QPA_PLATFORM=offscreen "$programs/print_report" "$work/books" ARCusLst.Rpt "$@") || complain "$*: not printed, number $?"
  [ "$named" = FrontOffice ] || complain "the default printer is called \"$named\""
  for _ in $(seq 40); do
    [ -z "$(lpstat -o 2>/dev/null)" ] && [ -n "$(came_out)" ] && break
    sleep 0.5
  done
  printed=$work/printed-$(basename "$(came_out)")
  mv "$(came_out)" "$printed" 2>/dev/null || { complain "$*: nothing came out"; tail -n 20 "$work/log/error" >&2; return 1; }
}
pages() { pdfinfo "$printed" | sed -n 's/^Pages: *//p'; }
# The spooler's driver keeps letters as drawings, so pages are compared as pictures.
picture() { pdftoppm -r 60 -gray -f "$2" -l "$2" "$1" 2>/dev/null | cksum; }
same() { [ "$(picture "$printed" "$1")" = "$(picture "$work/all.pdf" "$2")" ] || complain "page $1 of what was printed is not page $2 of the report"; }

if job 1 0 0; then
  [ "$(pages)" = 3 ] || complain "all of it: $(pages) pages, not 3"
  cp "$printed" "$work/all.pdf"
  [ "$(picture "$printed" 1)" != "$(picture "$printed" 2)" ] || complain "all pages look alike"
  case $(basename "$printed") in
    *Customers_of_the_month*) ;;
    *) complain "the job's title is not that of the window: $(basename "$printed")" ;;
  esac
fi
if job 1 2 3; then
  [ "$(pages)" = 2 ] || complain "pages 2 to 3: $(pages) pages"
  same 1 2
  same 2 3
fi
if job 2 1 1; then
  [ "$(pages)" = 2 ] || complain "two copies of page 1: $(pages) pages"
  same 1 1
  same 2 1
fi

# A printer that goes away, and none at all.
/usr/sbin/lpadmin -x FrontOffice
QT_QPA_PLATFORM=offscreen "$programs/print_report" "$work/books" ARCusLst.Rpt 1 0 0 >/dev/null 2>"$work/said" && complain "printed without a printer"
grep -q 'there is no printer' "$work/said" || complain "without a printer: $(cat "$work/said")"

[ "$failures" = 0 ] && echo "Printed on a real spooler: pages, ranges, copies and names are right."
