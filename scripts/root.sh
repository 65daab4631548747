# Sourced by fresh-root.sh and package-root.sh: a minimal Debian 12 in the folder $root, which is deleted in the end unless $keep
# is set, and the notes for the summary.

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

# Prints what was noted; ends with 1 when anything was wrong.
sum_up() {
    say "Summary"
    printf '%s\n' "${summary[@]}"
    [ "${#problems[@]}" -eq 0 ] || { printf 'WRONG: %s\n' "${problems[@]}"; exit 1; }
    echo "Nothing is wrong."
}

# Mounts are in a namespace that ends with its process (inside), so only files are left to delete.
clean_up() {
    rm -rf "$logs"
    if [ -n "$keep" ]; then printf 'Kept: %s\n' "$root"; else rm -rf --one-file-system "$root"; fi
}

# Prints the lines of a sources.list with those sources of Debian 12 that this machine's own apt is set up with.
package_sources() {
    apt-get indextargets --format 'deb $(REPO_URI) $(CODENAME) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian' |
        grep -E ' bookworm(-updates|-security)? main$' | sort -u
}

# make_root TOOL...: makes the root and the folder $logs, both deleted at exit; stops when one of these tools is missing here.
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

# inside COMMAND [FOLDER]: runs a line of shell in that folder of the root (/velmora), with a minimal environment.
inside() {
    unshare --mount --pid --fork --kill-child sh -c '
        mount -t proc proc "$0/proc" && mount --rbind /dev "$0/dev" &&
        exec chroot "$0" env -i HOME=/root TERM=dumb PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
            sh -c "cd $2 && $1"' "$root" "$1" "${2:-/velmora}"
}
