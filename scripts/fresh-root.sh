#!/usr/bin/env bash
# scripts/fresh-root.sh [--keep] [FOLDER]: tries ./run and ./test of the last commit where nothing is installed yet: in a minimal
# Debian 12 that it makes in FOLDER (which must not exist), by the package sources of this machine. Looks at what comes out and
# says in the end what it found; ends with 1 when anything is wrong. Takes half an hour and 10 GB, which it gives back, unless
# --keep is given. Needs root, mmdebstrap and python3.
set -euo pipefail
cd "$(dirname "$0")/.."

longest_silence=5.0 # seconds
problems=()
summary=()

say() { printf '\n#### %s\n' "$*"; }
note() { summary+=("$*"); }
wrong() {
    problems+=("$*")
    printf '#### WRONG: %s\n' "$*"
}
stop() {
    printf 'fresh-root.sh: %s\n' "$*" >&2
    exit 2
}

keep=""
[ "${1:-}" != --keep ] || { keep=yes; shift; }
root=${1:-$(mktemp -u /var/tmp/velmora-fresh-XXXXXX)}
[ "$(id -u)" -eq 0 ] || stop "only root may make another root"
for tool in mmdebstrap python3 git unshare; do
    command -v "$tool" >/dev/null || stop "$tool isn't installed"
done
[ ! -e "$root" ] || stop "$root is there already"
logs=$(mktemp -d)
# Everything is mounted in a namespace that goes with its process, so that only files are left to take away.
clean_up() {
    rm -rf "$logs"
    if [ -n "$keep" ]; then printf 'Kept: %s\n' "$root"; else rm -rf --one-file-system "$root"; fi
}
trap clean_up EXIT
trap 'exit 130' INT TERM

# The sources of Debian 12 that this machine's own apt is set up with, and what it is told about reaching them.
package_sources() {
    apt-get indextargets --format 'deb $(REPO_URI) $(CODENAME) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian' |
        grep -E ' bookworm(-updates|-security)? main$' | sort -u
}

make_root() {
    package_sources >"$logs/sources.list" || stop "apt of this machine has no sources of Debian 12; try apt-get update first"
    mmdebstrap --quiet --variant=minbase bookworm "$root" "$logs/sources.list" || stop "the root could not be made"
    cp -L /etc/resolv.conf /etc/hosts "$root/etc/"
    apt-config dump | grep -iE '^Acquire::([a-z]+::Proxy|Check-)' >"$root/etc/apt/apt.conf.d/99host" || true
    mkdir "$root/velmora"
    git archive HEAD | tar -x -C "$root/velmora"
}

# inside COMMAND: runs a line of shell in the root, in /velmora, with an environment as bare as the machine.
inside() {
    unshare --mount --pid --fork --kill-child sh -c '
        mount -t proc proc "$0/proc" && mount --rbind /dev "$0/dev" &&
        exec chroot "$0" env -i HOME=/root TERM=dumb PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
            sh -c "cd /velmora && $1"' "$root" "$1"
}

# attempt NAME COMMAND: runs it in the root and shows what it says, each line with its second. Looks at its exit code, the longest
# silence, and whether anything passed that helps nobody.
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

# A family that maps of other machines name, and the font of the same metrics that must stand in its place: for fontconfig and in
# what the program writes.
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

say "Making a minimal Debian 12 in $root"
begin=$SECONDS
make_root
note "the root: $((SECONDS - begin)) s, $(du -sm "$root" | cut -f1) MB"
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
note "all: $(du -sm "$root" | cut -f1) MB"

say "Summary"
printf '%s\n' "${summary[@]}"
[ "${#problems[@]}" -eq 0 ] || { printf 'WRONG: %s\n' "${problems[@]}"; exit 1; }
echo "Nothing is wrong."
