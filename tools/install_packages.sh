#!/usr/bin/env bash
# Installs the Debian packages that are missing: `install_packages.sh run` for building and running the program,
# `install_packages.sh test` for the tests too, `install_packages.sh tidy` for clang-tidy. Quiet, and content without a
# network, where nothing is missing.
set -euo pipefail

packages=(g++ cmake ninja-build qt6-base-dev qt6-svg-dev libgl-dev libcups2-dev libxlsxwriter-dev libsqlite3-dev nlohmann-json3-dev fonts-liberation
    python3 cmark-gfm)
optional=()
if [[ ${1:-run} == test ]]; then
    packages+=(libgtest-dev libgmock-dev clang-format xvfb openbox xdotool x11-utils imagemagick poppler-utils qpdf
        cups git locales util-linux lintian appstream desktop-file-utils libxml2-utils shared-mime-info mmdebstrap slurm-wlm
        munge sqlite3 libreoffice-calc-nogui)
    optional+=(g++-mingw-w64-x86-64 wine wine64) # the tests of a Windows engine are skipped without them
    optional+=(chromium chromium-driver)         # those of the published page, too
    optional+=(at-spi2-core gir1.2-atspi-2.0 python3-gi dbus-daemon) # that of what screen readers are told, too
elif [[ ${1:-run} == tidy ]]; then
    packages+=(libgtest-dev libgmock-dev clang clang-tidy)
fi

is_installed() { [[ $(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]; }

# Those of its arguments that are not installed.
list_missing() {
    local package
    for package in "$@"; do
        is_installed "$package" || echo "$package"
    done
}

as_root=()
[[ $(id -u) -eq 0 ]] || as_root=(sudo)

install() {
    echo "Installing $*"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -qq -y --no-install-recommends "$@" >/dev/null
}

mapfile -t missing < <(list_missing "${packages[@]}")
mapfile -t wished < <(list_missing "${optional[@]}")
if [[ ${#missing[@]} -gt 0 ]]; then
    if [[ $(id -u) -ne 0 ]] && ! command -v sudo >/dev/null; then
        echo "These packages are missing, and only root can install them: ${missing[*]}" >&2
        exit 1
    fi
    install "${missing[@]}"
fi
if [[ ${#wished[@]} -gt 0 ]]; then
    install "${wished[@]}" || echo "Not installed, so that their tests are skipped: ${wished[*]}" >&2
fi
