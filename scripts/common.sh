# Shared by the scripts beside it. Source it; it leaves the shell in the repository's root.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

say() { printf '%s\n' "$*" >&2; }

# install_missing KIND...: installs the packages of these kinds that are not there yet.
install_missing() {
    local kinds missing=() package
    kinds=$(IFS='|'; echo "$*")
    while read -r package; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            missing+=("$package")
    done < <(awk -v kinds="^($kinds)$" '$1 ~ kinds {print $2}' scripts/packages)
    if [ ${#missing[@]} -eq 0 ]; then return; fi
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    say "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq >&2
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq \
        --no-install-recommends "${missing[@]}" >&2
}

# stage TEXT COMMAND [ARGUMENT...]: says what is done, does it, and says how long it took.
stage() {
    local text=$1 start=$SECONDS
    shift
    say "$text..."
    "$@"
    local took=$((SECONDS - start))
    say "$text: $((took / 60)) min $((took % 60)) s"
}

# Compilers find again what they have compiled before, where ccache is installed.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_SLOPPINESS=pch_defines,time_macros
fi

# configure PRESET [OPTION...] and build PRESET [TARGET...]: quiet unless they fail. On a terminal a
# build shows how far it is.
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

# Configures the release preset unless it has been.
configure_release() { [ -f build/release/build.ninja ] || configure release; }
# The same with the property page and the window, which a folder may have been configured without.
configure_window() {
    if grep -qs '^GAZETTEER_WINDOW:BOOL=ON$' build/release/CMakeCache.txt; then
        configure_release
    else
        configure release -DGAZETTEER_WINDOW=ON
    fi
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
