# Sourced by ./run, ./test and ./bench: installs missing packages with apt, builds, and shows how far a command is.

shopt -s lastpipe # narrate runs in this shell, so that it knows when the command before it said something
said=${EPOCHREALTIME/[.,]/} # the last line on the screen, in microseconds
step() {
    printf '\n== %s\n' "$*"
    said=${EPOCHREALTIME/[.,]/}
}
fail() {
    printf '\nCannot go on: %s\n' "$*" >&2
    exit 1
}

# Fonts of the same metrics as Arial, Times and Courier (Liberation), Calibri (Carlito) and Cambria (Caladea): maps of other
# office machines name those, and their texts would not fit in wider ones.
packages_fonts="fonts-dejavu-core fonts-liberation fonts-crosextra-carlito fonts-crosextra-caladea"
packages_build="g++ cmake ninja-build pkg-config ccache mold qt6-base-dev qt6-svg-dev libgraphviz-dev libgl1-mesa-dev
libsqlitecpp-dev libsqlite3-dev mdbtools-dev libboost-dev libpugixml-dev libzip-dev libcups2-dev $packages_fonts"
packages_test="libgtest-dev libgmock-dev xvfb xauth xdotool poppler-utils cups-daemon cups-client cups-filters clang-tidy"
packages_bench="libbenchmark-dev"
packages_virtual_display="xvfb xauth"

# Qt wants a locale of UTF-8 and a folder for what lives as long as a login; a bare machine has neither set.
[ -n "${LC_ALL:-}${LC_CTYPE:-}${LANG:-}" ] || export LANG=C.UTF-8
if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
    export XDG_RUNTIME_DIR=$PWD/build/runtime
    mkdir -p -m 700 "$XDG_RUNTIME_DIR"
fi

missing_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' || echo "$package"
    done
}

# install_packages NAME...: installs those that are missing.
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
    watched apt build/packages.log $as_root apt-get update -q ||
        fail "apt-get update failed; is there a network? The whole log is in build/packages.log"
    watched apt build/packages.log $as_root apt-get install -y -q --no-install-recommends $missing ||
        fail "apt-get could not install:" $missing
}

# build PRESET [cmake options]: configures once, then builds what changed.
build() {
    local preset=$1 folder=build/$1
    shift
    step "Configuring $preset"
    watched cmake "$folder-configure.log" cmake --preset "$preset" "$@" ||
        fail "cmake failed; the whole log is in $folder-configure.log"
    step "Building $preset (only what changed)"
    NINJA_STATUS="[%f/%t %es] " watched ninja "$folder.log" cmake --build --preset "$preset" ||
        fail "the build failed; see above"
}

# watched KIND LOG COMMAND...: runs the command and shows its progress by narrate; its whole output goes to LOG. When it fails,
# and narrate has held most of it back (apt, cmake), the last lines of the log are shown.
watched() {
    local kind=$1 log=$2
    shift 2
    "$@" </dev/null 2>&1 | tee "$log" | narrate "$kind" && return 0
    case $kind in
        apt | cmake) tail -n 30 "$log" >&2 ;;
    esac
    return 1
}

# narrate KIND: shows the output that it reads. Of lines that are merely progress it shows one in three seconds, all others at
# once; when nothing comes for three seconds, it says that the command still runs. Plain shell, as some awks buffer their input.
narrate() {
    local kind=$1 line part="" held="" status begin=${EPOCHREALTIME/[.,]/}
    local -A running=()
    while true; do
        status=0
        IFS= read -r -t 0.5 line || status=$?
        part+=$line
        [ "$status" -ne 0 ] || { take_line; part=""; }
        if [ "$status" -ne 0 ] && [ "$status" -le 128 ]; then
            [ -z "$part" ] || printf '%s\n' "$part"
            return 0
        fi
        if [ $((${EPOCHREALTIME/[.,]/} - said)) -ge 3000000 ]; then
            said=${EPOCHREALTIME/[.,]/}
            printf '%s\n' "${held:-  ... $(((said - begin) / 1000000)) s ${!running[*]}}"
            held=""
        fi
    done
}

# Deals with the line $part for narrate: holds it back or shows it, and notes which tests are running.
take_line() {
    case "$kind:$part" in
        ninja:\[[0-9]*/[0-9]*) held=$part ;;
        cmake:* | apt:*) held=$part ;;
        ctest:*" Start "*": "*) running[${part##*: }]=1 ;;
        *)
            [[ $kind = ctest && $part =~ Test\ +#[0-9]+:\ ([^ ]+) ]] && unset "running[${BASH_REMATCH[1]}]"
            printf '%s\n' "$part"
            said=${EPOCHREALTIME/[.,]/}
            ;;
    esac
}
