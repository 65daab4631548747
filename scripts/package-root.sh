#!/usr/bin/env bash
# scripts/package-root.sh [--keep] PACKAGE [PICTURES]: installs the package (a .deb) in a minimal Debian 12 of its own, starts the
# editor there as an ordinary user under a virtual display, and removes the package again. Checks what each step leaves, and ends
# with a summary, and with 1 when anything is wrong. Pictures of the window are left in the folder PICTURES (build/package). Takes
# a few minutes and 1.5 GB; the root is deleted in the end, unless --keep is given. Needs root, mmdebstrap and python3.
set -euo pipefail

keep=""
[ "${1:-}" != --keep ] || { keep=yes; shift; }
[ -f "${1:-}" ] || { echo "usage: scripts/package-root.sh [--keep] PACKAGE [PICTURES]" >&2; exit 2; }
package=$(readlink -f "$1")
pictures=$(readlink -m "${2:-$(dirname "$0")/../build/package}")
cd "$(dirname "$0")/.."
. scripts/root.sh
root=$(mktemp -u /var/tmp/velmora-package-XXXXXX)

# attempt NAME COMMAND: runs it in the root, as its superuser; shows its output only when it fails.
attempt() {
    say "$1"
    inside "export DEBIAN_FRONTEND=noninteractive; $2" / >"$logs/said" 2>&1 </dev/null && return 0
    tail -n 20 "$logs/said"
    wrong "$1 fails"
}

# as_user COMMAND: runs it there as an ordinary user and prints its output.
as_user() { inside "exec su -l ann -c '$1'" / 2>"$logs/errors" </dev/null; }

# Every file, but for those in folders to which package managers and programs write as they run.
files_of_root() {
    (cd "$root" && find . -xdev \( -path ./proc -o -path ./dev -o -path ./sys -o -path ./tmp -o -path ./home -o -path ./var \) \
        -prune -o -print | sort)
}

# shown MAP NAME: starts the editor with the map, as a file manager does, and takes the picture NAME of its window.
shown() {
    as_user "VELMORA_SCREENSHOT=\$HOME/$2.png timeout 120 xvfb-run -a -s \"-screen 0 1440x900x24\" velmora \"$1\"" >/dev/null ||
        wrong "the editor doesn't start with $1: $(cat "$logs/errors")"
    cp "$root/home/ann/$2.png" "$pictures/" || wrong "no picture of $1"
}

# expect TEXT COMMAND...: notes the text when the command succeeds, else that it isn't so.
expect() {
    local text=$1
    shift
    if "$@" >/dev/null; then note "$text"; else wrong "not so: $text"; fi
}

make_root python3 dpkg-deb
version=$(dpkg-deb -f "$package" Version)
cp "$package" "$root/tmp/velmora.deb"
mkdir -p "$pictures"
rm -f "$pictures"/*.png
attempt "Installing a display and a user" "apt-get update && apt-get install -y --no-install-recommends xvfb xauth shared-mime-info \
    desktop-file-utils hicolor-icon-theme && useradd -m -s /bin/sh ann"
files_of_root >"$logs/without"
grep -v '^Inst velmora ' <(inside "apt-get install -s --no-install-recommends /tmp/velmora.deb" / 2>/dev/null) |
    sed -n 's/^Inst \([^ ]*\).*/\1/p' >"$logs/needed"
attempt "Installing what the package depends on" "apt-get install -y --no-install-recommends fonts-liberation $(tr '\n' ' ' <"$logs/needed")"
files_of_root >"$logs/before"
attempt "Installing $(basename "$package")" "apt-get install -y --no-install-recommends /tmp/velmora.deb"
files_of_root >"$logs/with"
note "$(comm -13 "$logs/before" "$logs/with" | grep -vc '/$') files of the package and of the caches"

say "Starting it as a user"
expect "velmora tells version $version" test "$(as_user 'velmora --version')" = "velmora $version"
expect "velmora-cli tells version $version" test "$(as_user 'velmora-cli --version')" = "velmora-cli $version"
expect "the sample can be read" as_user 'velmora-cli info "/usr/lib/velmora/Startup/Harbour Coffee.map"'
as_user 'cp "/usr/lib/velmora/Startup/Harbour Coffee.map" "$HOME/My plan.map"'
shown "/home/ann/My plan.map" own
shown "/usr/lib/velmora/Startup/Harbour Coffee.map" sample
shown "" empty
python3 scripts/fresh_root.py pictures "$pictures" >"$logs/found" || wrong "$(cat "$logs/found")"
note "$(cat "$logs/found")"
expect "the program's folder is as it came" test -z "$(inside 'dpkg --verify velmora' / 2>&1)"
expect "the menu entry is known for maps" grep -q "^application/vnd.velmora.map=velmora.desktop" \
    "$root/usr/share/applications/mimeinfo.cache"
expect "the type of maps is known" grep -q "vnd.velmora.map" "$root/usr/share/mime/globs2"

attempt "Removing it" "apt-get purge -y velmora"
files_of_root >"$logs/after"
expect "what was there before is there again, and no more" diff "$logs/before" "$logs/after"
expect "the caches have forgotten it" inside "! grep -rqi velmora /usr/share/mime /usr/share/applications /usr/lib /usr/bin" /
expect "the user's files are kept" test -s "$root/home/ann/My plan.map"
echo "Pictures: $pictures"
sum_up
