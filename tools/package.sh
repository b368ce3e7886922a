#!/usr/bin/env bash
# Makes the Debian package and tries it: `package.sh`, or `package.sh --of BUILD_FOLDER` for what is built there already.
# lintian must have nothing to say; in a clean root of Debian 12 the package must install, run, and leave nothing behind.
# Without --of it is built twice, in folders of other names, and must be the same to the byte; build/package keeps it.
# Ends with 77 where the clean root can't be made.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
work=$(mktemp -d)
trap 'umount "$work/clean/proc" 2>/dev/null || true; rm -rf --one-file-system "$work"' EXIT
day=$(sed -n 's/^set(KORVEL_RELEASE_DAY \(.*\))$/\1/p' CMakeLists.txt)
SOURCE_DATE_EPOCH=$(date -u -d "$day" +%s)
export SOURCE_DATE_EPOCH

# make_package SOURCES BUILD: prints the package's path.
make_package() {
    local launcher=()
    if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
    cmake -S "$1" -B "$2" -G Ninja -DCMAKE_BUILD_TYPE=Release -DKORVEL_TESTS=OFF "${launcher[@]}" >"$2.log" 2>&1 &&
        cmake --build "$2" -j "$(nproc)" >>"$2.log" 2>&1 || { tail -n 30 "$2.log" >&2; return 1; }
    pack "$2"
}

# pack BUILD: prints the path of the package of what is built there.
pack() {
    (cd "$1" && rm -f ./*.deb && cpack -G DEB) >"$work/pack.log" 2>&1 || { tail -n 30 "$work/pack.log" >&2; return 1; }
    echo "$1"/korvel_*.deb
}

if [[ ${1:-} == --of ]]; then
    package=$(pack "$(realpath "$2")")
else
    echo "Making the package"
    mkdir -p build
    package=$(make_package "$root" "$root/build/package")
    echo "Making it again elsewhere"
    mkdir "$work/elsewhere"
    git ls-files -z | xargs -0 cp --parents -t "$work/elsewhere"
    again=$(make_package "$work/elsewhere" "$work/another build")
    cmp "$package" "$again"
fi
echo "Made $package, $(stat -c %s "$package") bytes"

echo "Asking lintian"
lintian --fail-on error,warning --allow-root "$package"

if [[ $(id -u) -ne 0 ]] || ! command -v mmdebstrap >/dev/null; then
    echo "Skipped: a clean root takes root's rights and mmdebstrap"
    exit 77
fi
echo "Making a clean root"
sources=$(cat /etc/apt/sources.list /etc/apt/sources.list.d/*.sources /etc/apt/sources.list.d/*.list 2>/dev/null | sed '/^#/d' || true)
if ! mmdebstrap --mode=root --variant=apt --aptopt='Acquire::Languages "none"' \
    --aptopt='Acquire::Check-Valid-Until "false"' bookworm "$work/clean" - <<<"$sources" >"$work/clean.log" 2>&1; then
    echo "Skipped: no clean root can be made here: $(tail -n 1 "$work/clean.log" | sed 's#http[^ ]*#the mirror#')"
    exit 77
fi
mount --bind /proc "$work/clean/proc" # in a root without /proc package scripts complain
inside() { chroot "$work/clean" env DEBIAN_FRONTEND=noninteractive PATH=/usr/sbin:/usr/bin:/sbin:/bin "$@"; }
listing() { (cd "$work/clean" && find . -xdev -path ./var -prune -o -path ./proc -prune -o -path ./tmp -prune -o -print | sort); }
inside useradd --create-home user
cp "$package" "$work/clean/tmp/korvel.deb"
# What the package needs comes first, so that only the package itself is told apart below.
needs=$(for field in Depends Recommends; do dpkg-deb -f "$package" $field; done | sed 's/([^)]*)//g; s/,/ /g')
if ! { inside apt-get update -qq && inside apt-get install -qq -y --download-only --no-install-recommends $needs; } \
    >"$work/fetch.log" 2>&1; then
    echo "Skipped: what the package needs can't be fetched here"
    exit 77
fi
inside apt-get install -qq -y --no-install-recommends $needs >"$work/needs.log" 2>&1 || { tail -n 20 "$work/needs.log"; exit 1; }
listing >"$work/before"

echo "Installing"
inside apt-get install -qq -y --no-install-recommends /tmp/korvel.deb >"$work/install.log" 2>&1 || { cat "$work/install.log"; exit 1; }
inside grep -q '^application/x-korvel-results=.*korvel-explorer.desktop' /usr/share/applications/mimeinfo.cache
inside grep -q 'application/x-korvel-results:\*.sgr' /usr/share/mime/globs2
inside su user -c 'cd && cp /usr/share/doc/korvel/examples/ALDER.DAT . && korvel run ALDER.DAT --wait | tail -n 1 &&
    korvel info ALDER.SGR | head -n 1 && korvel table ALDER.SGR --output ALDER.xlsx'
inside grep -q '<title>The KORVEL guide</title>' /usr/share/doc/korvel/guide.html
echo "A window, for two seconds"
status=0
inside su user -c 'QT_QPA_PLATFORM=offscreen timeout 2 korvel ~/ALDER.SGR' >/dev/null 2>&1 || status=$?
[[ $status -eq 124 ]] || { echo "The window ended with $status" >&2; exit 1; }

echo "Installing it again keeps what is the user's"
inside su user -c 'echo mine >~/.local/share/korvel/korvelf157.exe'
inside apt-get install -qq -y --reinstall --no-install-recommends /tmp/korvel.deb >/dev/null 2>&1
[[ $(inside cat /home/user/.local/share/korvel/korvelf157.exe) == mine ]]

echo "Removing"
inside apt-get purge -qq -y korvel >/dev/null 2>&1
inside rm -rf /home/user/.local /home/user/.cache /home/user/.config
rm -f "$work"/clean/home/user/ALDER.*
listing >"$work/after"
diff "$work/before" "$work/after"
echo "The package installs, runs and leaves nothing"
