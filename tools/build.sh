#!/usr/bin/env bash
# Configures and builds one preset: `build.sh PRESET [cmake options]`. The log is shown only where something fails.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
preset=$1
shift

options=("$@")
if command -v ccache >/dev/null; then options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi

cd "$root"
mkdir -p "build/$preset"
log=build/$preset/build.log
echo "Building build/$preset" >&2
if ! { cmake --preset "$preset" "${options[@]}" && cmake --build "build/$preset" -j "$(nproc)"; } >"$log" 2>&1; then
    tail -n 60 "$log" >&2
    echo "The build failed; all of it is in $root/$log" >&2
    exit 1
fi
