#!/bin/sh
# The same list of 20,000 customers to PDF by us and by LibreOffice (headless, from our CSV): time by the clock, processor time, highest
# memory. Needs libreoffice-calc; nothing else here does.
#
#   scripts/office.sh [PROGRAMS]
set -eu
cd "$(dirname "$0")/.."
programs=${1:-build/default/bin}
command -v soffice >/dev/null 2>&1 || { echo "There is no LibreOffice here." >&2; exit 77; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen HOME="$work"
"$programs/suitefiles" demo "$work/books" --company 1 --customers 20000 --seed 1 >/dev/null
"$programs/custsearch" report ARCusLst.Rpt --data "$work/books" --to "$work/list.csv" >/dev/null 2>&1

# measured NAME COMMAND...: the command's figures, told by the system when it has ended.
measured() {
  name=$1
  shift
  python3 - "$name" "$@" <<'END'
import resource, subprocess, sys, time
begin = time.monotonic()
subprocess.run(sys.argv[2:], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
used = resource.getrusage(resource.RUSAGE_CHILDREN)
print("| %s | %.1f | %.1f | %d |" % (sys.argv[1], time.monotonic() - begin, used.ru_utime + used.ru_stime, used.ru_maxrss // 1024))
END
}
echo "| 20,000 customers to PDF | s by the clock | s of processor time | MiB |"
echo "| --- | ---: | ---: | ---: |"
measured "ours" "$programs/custsearch" report ARCusLst.Rpt --data "$work/books" --to "$work/ours.pdf"
# Once before, so that its own settings are there.
soffice --headless --convert-to pdf --outdir "$work/before" "$work/list.csv" >/dev/null 2>&1
measured "LibreOffice" soffice --headless --convert-to pdf --outdir "$work/office" "$work/list.csv"
for file in "$work/ours.pdf" "$work/office/list.pdf"; do
  echo "$(basename "$file"): $(pdfinfo "$file" | sed -n 's/^Pages: *//p') pages, $(($(stat -c %s "$file") / 1024)) KiB"
done
