#!/usr/bin/env bash
# Installs the Debian packages that are missing: `install_packages.sh run` for building and running the program,
# `install_packages.sh test` for the tests too, `install_packages.sh tidy` for clang-tidy. Quiet, and content without a
# network, where nothing is missing.
set -euo pipefail

packages=(g++ cmake ninja-build qt6-base-dev qt6-svg-dev libgl-dev libcups2-dev nlohmann-json3-dev fonts-liberation
    python3)
if [[ ${1:-run} == test ]]; then
    packages+=(libgtest-dev libgmock-dev clang-format xvfb openbox xdotool x11-utils imagemagick poppler-utils
        cups git util-linux lintian appstream desktop-file-utils libxml2-utils shared-mime-info mmdebstrap slurm-wlm
        munge)
elif [[ ${1:-run} == tidy ]]; then
    packages+=(libgtest-dev libgmock-dev clang clang-tidy)
fi

is_installed() { [[ $(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]; }

missing=()
for package in "${packages[@]}"; do
    is_installed "$package" || missing+=("$package")
done
[[ ${#missing[@]} -gt 0 ]] || exit 0

as_root=()
if [[ $(id -u) -ne 0 ]]; then
    if ! command -v sudo >/dev/null; then
        echo "These packages are missing, and only root can install them: ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
echo "Installing ${missing[*]}"
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -qq -y --no-install-recommends "${missing[@]}" >/dev/null
