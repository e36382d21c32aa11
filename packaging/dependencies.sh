# The Debian packages that Nookwise needs, by purpose, and how to install those that are missing.
# Sourced by ./run and ./test.
# shellcheck shell=bash disable=SC2034

# To compile it.
buildPackages=(
    ccache
    cmake
    g++
    libglib2.0-dev
    libicu-dev
    libleptonica-dev
    libpoppler-cpp-dev
    libseccomp-dev
    libssl-dev
    libtesseract-dev
    libvips-dev
    ninja-build
    pkg-config
    qt6-base-dev
    qt6-declarative-dev
    qt6-svg-dev
    rapidjson-dev
)

# To run it, beyond the libraries that the packages above bring.
runPackages=(
    fonts-inter
    poppler-data
    qml6-module-qtqml
    qml6-module-qtqml-models
    qml6-module-qtqml-workerscript
    qml6-module-qtquick
    qml6-module-qtquick-controls
    qml6-module-qtquick-layouts
    qml6-module-qtquick-shapes
    qml6-module-qtquick-templates
    qml6-module-qtquick-window
    qt6-qpa-plugins
    qt6-wayland
    tesseract-ocr-eng
    tesseract-ocr-osd
)

# To test it. The benchmarks are compiled with the tests.
testPackages=(
    dbus
    desktop-file-utils
    gvfs
    libglib2.0-bin
    libgmock-dev
    libgtest-dev
    qml6-module-qttest
    strace
    trash-cli
    xdotool
    xvfb
    zlib1g-dev
)

# To fuzz it. Clang 14 does not understand all that the code takes from the standard library.
fuzzPackages=(
    clang-16
    libclang-rt-16-dev
)

# To check its style.
stylePackages=(
    clang-format
    clang-tidy
)

# To measure it against its peers.
benchPackages=(
    findutils
    jdupes
    libglib2.0-bin
    poppler-utils
    ripgrep
    tesseract-ocr
    trash-cli
    xvfb
)

say() { printf '\n== %s\n' "$*"; }

# Names those of the given packages that are not installed.
missingPackages() {
    local installed
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
        sed -n 's/^installed //p') || true
    comm -23 <(printf '%s\n' "$@" | sort -u) <(sort -u <<<"$installed")
}

# Takes a few milliseconds where nothing is missing.
installMissing() {
    local missing sudo=()
    mapfile -t missing < <(missingPackages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    say "Installing with apt-get what is missing: ${missing[*]}"
    local install=(apt-get -y --no-install-recommends install "${missing[@]}")
    if [ "$(id -u)" != 0 ]; then
        sudo=(sudo)
        if ! command -v sudo >/dev/null; then
            printf 'There is no sudo here. As root, run:\n  %s\n' "${install[*]}" >&2
            return 1
        fi
    fi
    # The package index may never have been fetched here, or may name versions that are gone.
    if apt-get -qq --simulate "${install[@]:1}" &>/dev/null; then
        "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive "${install[@]}" && return 0
    fi
    say "Fetching the package index first"
    "${sudo[@]}" apt-get update
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive "${install[@]}"
}
