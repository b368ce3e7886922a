#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy: tidy.sh [BUILD_FOLDER [PATH...]], by default over src/, engine/,
# benchmarks/ and tests/fakes/. The build folder (build/tidy) is configured with the preset tidy; nothing is built.
# Any warning fails.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

build=${1:-build/tidy}
paths=("${@:2}")
if [[ ${#paths[@]} -eq 0 ]]; then paths=(src engine benchmarks tests/fakes); fi

tools/install_packages.sh tidy
cmake --preset tidy -B "$build" >/dev/null

# tidy FILE: what it says apart from how many warnings it left out.
tidy() {
    local said status=0
    said=$(clang-tidy --quiet -p "$build" "$1" 2>&1) || status=$?
    grep -vE '^$|^[0-9]+ warnings? (generated|treated)|^Suppressed ' <<<"$said" || true
    return $status
}
export -f tidy
export build

if ! find "${paths[@]}" -name '*.cpp' -print0 | sort -z | xargs -0 -P "$(nproc)" -I {} bash -c 'tidy {}'; then
    echo "clang-tidy warns." >&2
    exit 1
fi
