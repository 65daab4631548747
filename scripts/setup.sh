# Sourced by ./run, ./test and ./bench: finds out what is missing and installs it with apt.

step() { printf '\n== %s\n' "$*"; }
fail() {
    printf '\nCannot go on: %s\n' "$*" >&2
    exit 1
}

packages_build="g++ cmake ninja-build pkg-config ccache mold qt6-base-dev libqt6svg6-dev libgraphviz-dev libgl1-mesa-dev
libsqlitecpp-dev libsqlite3-dev mdbtools-dev libboost-dev libpugixml-dev fonts-dejavu-core"
packages_test="libgtest-dev libgmock-dev"
packages_bench="libbenchmark-dev"
packages_virtual_display="xvfb"

missing_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' || echo "$package"
    done
}

# install_packages NAME...: installs those that are missing; does nothing and takes no time when none is.
install_packages() {
    command -v dpkg-query >/dev/null 2>&1 || fail "this machine has no dpkg; the set-up is made for Debian 12.
Install by hand what these Debian packages hold: $*"
    local missing as_root=""
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    step "Installing" $missing
    command -v apt-get >/dev/null 2>&1 || fail "apt-get isn't there. Missing packages:" $missing
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null 2>&1 || fail "not root, and no sudo. Missing packages:" $missing
        as_root="sudo"
    fi
    export DEBIAN_FRONTEND=noninteractive
    $as_root apt-get update -qq || fail "apt-get update failed; is there a network?"
    $as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null ||
        fail "apt-get could not install:" $missing
}

# build PRESET [cmake options]: configures once, then builds what changed.
build() {
    local preset=$1 folder=build/$1
    shift
    step "Configuring $preset"
    cmake --preset "$preset" "$@" >"$folder.log" 2>&1 || {
        tail -n 30 "$folder.log" >&2
        fail "cmake failed; the whole log is in $folder.log"
    }
    step "Building $preset (only what changed)"
    NINJA_STATUS="[%f/%t %es] " cmake --build --preset "$preset" 2>&1 | progress ||
        fail "the build failed; see above"
}

# Lets through one line in five seconds of a build, and all that isn't progress.
progress() {
    awk '/^\[[0-9]+\/[0-9]+ / { now = systime(); if (now - last >= 5) { print; fflush(); last = now } next }
         { print; fflush() }'
}
