# shellcheck shell=bash
# shellcheck disable=SC2034 # the lists are read by who sources this
# What ./run, ./test and the scripts share. Sourced by bash, never run.
# Needs $root, the folder of the project. Everything said here goes to stderr.
: "${root:?}"

build_packages=(g++ cmake ninja-build libcli11-dev)
speed_packages=(ccache mold) # the build is slower without them, not other
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev clang-format)
desktop_packages=(qt6-base-dev qt6-multimedia-dev qt6-svg-dev libqscintilla2-qt6-dev fonts-liberation)
analysis_packages=(clang libclang-rt-14-dev clang-tidy)

if [[ ! -w ${HOME:-/nonexistent} ]]; then
    export CCACHE_DIR=$root/build/ccache
fi

say() { printf '%s: %s\n' "${0##*/}" "$*" >&2; }
die() {
    say "$@"
    exit 1
}

jobs_to_use() { echo "${TARNWICK_JOBS:-$(nproc)}"; }

has_desktop_sources() { compgen -G "$root/src/display/*.cpp" >/dev/null; }

missing_packages() { # PACKAGE...: prints those that are not installed
    local package
    for package in "$@"; do
        [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || echo "$package"
    done
}

# quietly COMMAND...: runs it and shows what it printed only if it fails.
quietly() {
    local log status=0
    log=$(mktemp)
    "$@" >"$log" 2>&1 </dev/null || status=$?
    ((status == 0)) || cat "$log" >&2
    rm -f "$log"
    return "$status"
}

# install_packages PACKAGE...: installs what is missing, as root or through sudo.
installed_something=no
install_packages() {
    local -a missing=() as_root=() apt
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        return 0 # not a Debian: CMake will say what it misses
    fi
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0
    if ((EUID != 0)); then
        if command -v sudo >/dev/null && { [[ -t 0 ]] || sudo -n true 2>/dev/null; }; then
            as_root=(sudo)
        else
            mapfile -t missing < <(only_needed "${missing[@]}")
            ((${#missing[@]})) || return 0
            die "please have these installed: apt-get install --no-install-recommends ${missing[*]}"
        fi
    fi
    say "installing ${missing[*]}"
    apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300)
    quietly "${apt[@]}" update || die "apt-get update failed"
    quietly "${apt[@]}" install --no-install-recommends "${missing[@]}" || die "apt-get install failed"
    installed_something=yes
}

only_needed() { # PACKAGE...: prints those that the build cannot do without
    local package
    for package in "$@"; do
        [[ " ${speed_packages[*]} " == *" $package "* ]] || echo "$package"
    done
}

# configure PRESET CMAKE-ARGS...: prepares build/PRESET. A folder that was copied from elsewhere is prepared anew.
configure() {
    local preset=$1 cache=$root/build/$1/CMakeCache.txt
    shift
    local -a fresh=()
    if [[ -f $cache ]] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$cache"; then
        fresh=(--fresh)
    fi
    (cd "$root" && quietly cmake --preset "$preset" "${fresh[@]}" "$@")
}

# build PRESET TARGET...
build() {
    local preset=$1
    shift
    (cd "$root" && quietly cmake --build --preset "$preset" -j "$(jobs_to_use)" --target "$@")
}

# Two commands at a time would trip over each other in one build folder; the second waits.
lock_build() {
    mkdir -p "$root/build"
    exec 9>"$root/build/.lock"
    if ! flock -n 9; then
        say "waiting for another build"
        flock 9
    fi
}
unlock_build() { exec 9>&-; }
