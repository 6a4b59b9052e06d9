# Sourced by the other scripts. Changes to the repository's root.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

say() { printf '%s\n' "$*" >&2; }

# The release of Debian, for example 13.
release=$(. /etc/os-release && echo "${VERSION_ID:-}")

# install_missing KIND...: installs the missing packages of these kinds.
install_missing() {
    local kinds missing=() package
    kinds=$(IFS='|'; echo "$*")
    while read -r package; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            missing+=("$package")
    done < <(awk -v kinds="^($kinds)$" -v release="$release" \
        '$1 ~ kinds && (NF < 3 || $3 == release) {print $2}' scripts/packages)
    if [ ${#missing[@]} -eq 0 ]; then return; fi
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    say "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq >&2
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq \
        --no-install-recommends "${missing[@]}" >&2
}

# stage TEXT COMMAND [ARGUMENT...]: prints the text, runs the command, and prints the time it took.
stage() {
    local text=$1 start=$SECONDS
    shift
    say "$text..."
    "$@"
    local took=$((SECONDS - start))
    say "$text: $((took / 60)) min $((took % 60)) s"
}

# Uses ccache if it is installed.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_SLOPPINESS=pch_defines,time_macros
fi

# configure PRESET [OPTION...] and build PRESET [TARGET...]: print nothing unless they fail, except the
# progress of a build on a terminal.
configure() { quietly "The configuration of preset $1" cmake --preset "$@"; }
build() {
    local preset=$1
    shift
    local command=(cmake --build --preset "$preset" ${1:+--target "$@"})
    if [ -t 2 ]; then
        "${command[@]}" >&2 || { say "The build of preset $preset failed."; exit 1; }
    else
        quietly "The build of preset $preset" "${command[@]}"
    fi
}

# Configures the release preset if it is not configured.
configure_release() { [ -f build/release/build.ninja ] || configure release; }
# The same with property page and window, which an existing configuration may lack.
configure_window() {
    if grep -qs '^GAZETTEER_WINDOW:BOOL=ON$' build/release/CMakeCache.txt; then
        configure_release
    else
        configure release -DGAZETTEER_WINDOW=ON
    fi
}

# Lets the programs of the release build make the library of GIS sources when they first need it. One
# that is there is built with them, as the target in `gis_library`, since both must be of one version.
gis_library=()
offer_gis() {
    export GAZETTEER_GDAL_BUILD="'${PWD//\'/\'\\\'\'}/scripts/gis'"
    if [ -e build/release/lib/gazetteer/libgazetteer-gdal.so ]; then gis_library=(gis_library); fi
}

quietly() {
    local what=$1 log
    shift
    log=$(mktemp)
    if ! "$@" >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        say "$what failed."
        exit 1
    fi
    rm -f "$log"
}
