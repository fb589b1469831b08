# shellcheck shell=bash disable=SC2034
# What the commands of this folder share. To be sourced; leaves the shell at the root of the tree.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

log_folder=build/log
mkdir -p "$log_folder"
jobs=$(nproc)

# step TITLE COMMAND... - runs the command, its output in a log file, and prints one line with the time it took.
step() {
    local title=$1 log started=$SECONDS
    shift
    log=$log_folder/$(tr -cs '[:alnum:]\n' '-' <<<"${title,,}").log
    printf '%-50s' "$title ..."
    if "$@" >"$log" 2>&1 </dev/null; then
        printf ' done in %d s\n' $((SECONDS - started))
        return
    fi
    printf ' FAILED after %d s\n' $((SECONDS - started))
    tail -n 40 "$log"
    echo "Failed: $title. The whole output is in $log"
    exit 1
}

# The packages of scripts/packages, and those named, that dpkg does not know as installed.
missing_packages() {
    local package
    while read -r package; do
        [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || echo "$package"
    done < <(sed -e 's/#.*//' -e '/^[[:space:]]*$/d' scripts/packages; (($# == 0)) || printf '%s\n' "$@")
}

# install_packages [PACKAGE...] - installs what scripts/packages lists, and what is named, as far as the system lacks it;
# does nothing where there is no dpkg.
install_packages() {
    command -v dpkg-query >/dev/null || return 0
    local missing as_root=()
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing and only root can install them: ${missing[*]}"
            exit 1
        fi
        as_root=(sudo)
    fi
    step 'Reading package lists' "${as_root[@]}" apt-get update
    step "Installing ${#missing[@]} packages" "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install --yes --no-install-recommends "${missing[@]}"
}

# configure PRESET - configures build/PRESET unless that was done since the presets last changed; later changes of the
# CMake files are the build's to notice.
configure() {
    [[ build/$1/build.ninja -nt CMakePresets.json ]] || step "Configuring $1" cmake --preset "$1"
}

# build PRESET [TARGET...] - builds the targets named, or everything.
build() {
    local preset=$1
    shift
    local title="Building $preset${*:+: $*}"
    (($# == 0)) || set -- --target "$@"
    step "$title" cmake --build --preset "$preset" "$@"
}

# Whether a window can be shown to somebody.
has_display() {
    [[ -n ${DISPLAY:-} || -n ${WAYLAND_DISPLAY:-} ]]
}
