# Sourced by fresh-root.sh and package-root.sh: a minimal Debian 12 in the folder $root, which goes in the end unless $keep is set,
# and what is noted on the way.

problems=()
summary=()

say() { printf '\n#### %s\n' "$*"; }
note() { summary+=("$*"); }
wrong() {
    problems+=("$*")
    printf '#### WRONG: %s\n' "$*"
}
stop() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 2
}

# Ends with 1 when anything was wrong.
sum_up() {
    say "Summary"
    printf '%s\n' "${summary[@]}"
    [ "${#problems[@]}" -eq 0 ] || { printf 'WRONG: %s\n' "${problems[@]}"; exit 1; }
    echo "Nothing is wrong."
}

# Everything is mounted in a namespace that goes with its process, so that only files are left to take away.
clean_up() {
    rm -rf "$logs"
    if [ -n "$keep" ]; then printf 'Kept: %s\n' "$root"; else rm -rf --one-file-system "$root"; fi
}

# The sources of Debian 12 that this machine's own apt is set up with, and what it is told about reaching them.
package_sources() {
    apt-get indextargets --format 'deb $(REPO_URI) $(CODENAME) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian' |
        grep -E ' bookworm(-updates|-security)? main$' | sort -u
}

# make_root TOOL...: needs these tools on this machine; makes the root and the folder $logs.
make_root() {
    local begin=$SECONDS tool
    [ "$(id -u)" -eq 0 ] || stop "only root may make another root"
    for tool in mmdebstrap unshare "$@"; do
        command -v "$tool" >/dev/null || stop "$tool isn't installed"
    done
    [ ! -e "$root" ] || stop "$root is there already"
    say "Making a minimal Debian 12 in $root"
    logs=$(mktemp -d)
    trap clean_up EXIT
    trap 'exit 130' INT TERM
    package_sources >"$logs/sources.list" || stop "apt of this machine has no sources of Debian 12; try apt-get update first"
    mmdebstrap --quiet --variant=minbase bookworm "$root" "$logs/sources.list" || stop "the root could not be made"
    cp -L /etc/resolv.conf /etc/hosts "$root/etc/"
    apt-config dump | grep -iE '^Acquire::([a-z]+::Proxy|Check-)' >"$root/etc/apt/apt.conf.d/99host" || true
    note "the root: $((SECONDS - begin)) s, $(du -sm "$root" | cut -f1) MB"
}

# inside COMMAND [FOLDER]: runs a line of shell in the root, in that folder of it (/velmora), with an environment as bare as the
# machine.
inside() {
    unshare --mount --pid --fork --kill-child sh -c '
        mount -t proc proc "$0/proc" && mount --rbind /dev "$0/dev" &&
        exec chroot "$0" env -i HOME=/root TERM=dumb PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
            sh -c "cd $2 && $1"' "$root" "$1" "${2:-/velmora}"
}
