#!/usr/bin/env bash
# scripts/fresh-root.sh [--keep] [--print] [FOLDER]: runs ./run and ./test of the last commit where nothing is installed yet: in
# a minimal Debian 12 that it makes in FOLDER (which must not exist) from the package sources of this machine. Checks what they
# print and make, and ends with a summary, and with 1 when anything is wrong. With --print it also prints a page there, through a
# print server and a printer that makes PDF files. Takes half an hour and 10 GB; the folder is deleted in the end, unless --keep is
# given. Needs root, mmdebstrap and python3.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/root.sh

longest_silence=5.0 # seconds without output
keep="" print=""
[ "${1:-}" != --keep ] || { keep=yes; shift; }
[ "${1:-}" != --print ] || { print=yes; shift; }
root=${1:-$(mktemp -u /var/tmp/velmora-fresh-XXXXXX)}

# attempt NAME COMMAND: runs it in the root and shows its output, each line with the seconds since the start. Checks its exit code,
# the longest time without output, and that it prints no warnings.
attempt() {
    local name=$1 code=0
    say "$name"
    inside "$2" </dev/null 2>&1 | python3 -u scripts/fresh_root.py stamp "$logs/$name.log" || code=$?
    python3 scripts/fresh_root.py lines "$logs/$name.log" "$longest_silence" >"$logs/found" || true
    while IFS= read -r line; do
        case $line in
            WRONG*) wrong "$name: ${line#WRONG }" ;;
            *) note "$name: $line" ;;
        esac
    done <"$logs/found"
    [ "$code" -eq 0 ] || wrong "$name ended with $code"
}

look_at_pictures() {
    python3 scripts/fresh_root.py pictures "$root/velmora/build/first-run" >"$logs/found" || wrong "$(cat "$logs/found")"
    note "$(cat "$logs/found")"
}

# look_at_font FAMILY SUBSTITUTE: a family that maps of other machines name, and the font of the same metrics that must take its
# place, by fontconfig and in the files that the program writes.
look_at_font() {
    local family=$1 substitute=$2 match
    match=$(inside "fc-match -f '%{family}' '$family'")
    [ "$match" = "$substitute" ] || wrong "fontconfig gives \"$match\" for $family"
    cp "$root"/velmora/build/release/bin/Startup/*.map "$root/tmp/font.map"
    python3 scripts/fresh_root.py font "$root/tmp/font.map" "$family"
    inside "build/release/bin/velmora-cli picture /tmp/font.map /tmp/font.pdf" >"$logs/found" 2>&1 ||
        wrong "no picture in $family: $(tail -n 1 "$logs/found")"
    grep -aq "/FontName.*+${substitute// /}" "$root/tmp/font.pdf" || wrong "$family is not painted in $substitute"
}

# The print server that it starts ends with the command: that has a process namespace of its own.
look_at_printing() {
    say "print"
    inside "DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends cups printer-driver-cups-pdf" \
        </dev/null >"$logs/found" 2>&1 || { wrong "no printer can be installed: $(tail -n 1 "$logs/found")"; return; }
    inside "cupsd && lpadmin -p Paper -E -v cups-pdf:/ -P /usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd -o printer-error-policy=abort-job &&
        QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 ASAN_OPTIONS=detect_leaks=0 build/dev/bin/test_support_real_cups --print-a-page Paper &&
        for second in \$(seq 60); do [ -z \"\$(lpstat -o)\" ] || sleep 1; done &&
        mkdir -p build/printed && pdftoppm -r 100 -png /root/PDF/*.pdf build/printed/page" >"$logs/found" 2>&1 ||
        { wrong "nothing is printed: $(tail -n 1 "$logs/found")"; return; }
    python3 scripts/fresh_root.py printed "$root/velmora/build/printed" >"$logs/found" || wrong "$(cat "$logs/found")"
    note "print: $(cat "$logs/found")"
}

make_root python3 git
mkdir "$root/velmora"
git archive HEAD | tar -x -C "$root/velmora"
attempt run ./run
look_at_pictures
while IFS=: read -r family substitute; do
    look_at_font "$family" "$substitute"
done <<'END'
Arial:Liberation Sans
Times New Roman:Liberation Serif
Courier New:Liberation Mono
Calibri:Carlito
Cambria:Caladea
END
attempt run-again ./run
! grep -q '== Installing' "$logs/run-again.log" || wrong "the second ./run installs once more"
attempt test ./test
grep -q '100% tests passed' "$logs/test.log" || wrong "not every test passed"
[ -z "$print" ] || look_at_printing
note "all: $(du -sm "$root" | cut -f1) MB"

sum_up
