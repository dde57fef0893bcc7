# What the other scripts share; to be sourced.

set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

# Installs those of the given Debian packages that are missing.
install_missing() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Installing ${missing[*]}"
    local sudo=
    [ "$(id -u)" -eq 0 ] || sudo=sudo
    $sudo apt-get update -qq
    $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

install_build_tools() {
    install_missing g++ cmake ninja-build qtbase5-dev libqwt-qt5-dev libjsoncpp-dev libboost-dev libgtest-dev \
        libbenchmark-dev libopencv-core-dev libopencv-imgproc-dev libopencv-calib3d-dev fonts-dejavu-core
}

# build PRESET [TARGET...]
build() {
    local preset=$1
    shift
    cmake --preset "$preset" ${CI:+-DTUNING_WERROR=ON} >/dev/null
    cmake --build --preset "$preset" ${1:+--target "$@"}
}

# board_start PROGRAM DIRECTORY LOG: a simulated board, whose process is in "board" and "pids" and whose port in "port".
board_start() {
    : >"$3" # or the first look comes too early
    "$1" --port 0 --directory "$2" --log >"$3" 2>&1 &
    board=$!
    pids+=("$board")
    port=
    local try
    for try in $(seq 50); do
        port=$(sed -n 's|.*http://127\.0\.0\.1:\([0-9]*\).*|\1|p' "$3" | head -n 1)
        [ -z "$port" ] || return 0
        sleep 0.1
    done
    cat "$3"
    return 1
}
