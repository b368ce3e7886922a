#!/usr/bin/env bash
# Fuzzes the readers of outside bytes, one after another: `tools/fuzz.sh [SECONDS [HARNESS...]]`, by default all of them
# for 600 seconds each. What reaches new code goes into tests/fuzz/corpus, made as small as it gets; inputs there that have
# a name of their own (not a checksum) always stay. Each harness has one file there; tools/corpus.py packs and unpacks it. A finding is kept in build/fuzz/findings, and the exit status is 1.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
seconds=${1:-600}
harnesses=("${@:2}")
if [[ ${#harnesses[@]} -eq 0 ]]; then harnesses=(tests/fuzz/corpus/*.corpus); fi

limits=(-max_len=4096 -timeout=10 -rss_limit_mb=1500)
status=0

# minimise HARNESS: named files, then as few others as cover what all of them do.
minimise() {
    local corpus=build/fuzz/seeds/$1 smaller=build/fuzz/smaller/$1
    rm -rf "$smaller"
    mkdir -p "$smaller"
    find "$corpus" -type f -regextype posix-extended -not -regex '.*/[0-9a-f]{40}' -exec cp {} "$smaller" \;
    "build/fuzz/bin/fuzz_$1" -set_cover_merge=1 "${limits[@]}" "$smaller" "$corpus" "build/fuzz/found/$1" \
        >"build/fuzz/logs/$1.merge" 2>&1
    tools/corpus.py pack "$smaller" "tests/fuzz/corpus/$1.corpus"
}

# fuzz HARNESS: works in build/fuzz/found, with the corpus as seeds.
fuzz() {
    local log=build/fuzz/logs/$1 dictionary=tests/fuzz/$1.dict options=()
    rm -rf "build/fuzz/seeds/$1"
    tools/corpus.py unpack "tests/fuzz/corpus/$1.corpus" "build/fuzz/seeds/$1"
    mkdir -p "build/fuzz/found/$1" "build/fuzz/findings/$1" build/fuzz/logs
    if [[ -f $dictionary ]]; then options+=("-dict=$dictionary"); fi
    if ! nice -n 10 "build/fuzz/bin/fuzz_$1" "${limits[@]}" "${options[@]}" -max_total_time="$seconds" \
        -print_final_stats=1 -artifact_prefix="build/fuzz/findings/$1/" "build/fuzz/found/$1" "build/fuzz/seeds/$1" \
        >"$log" 2>&1; then
        echo "$1: a finding; its report is in $log"
        tail -n 40 "$log"
        status=1
        return
    fi
    minimise "$1"
    echo "$1: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") runs in ${seconds} s, no finding;" \
        "$(tools/corpus.py count "tests/fuzz/corpus/$1.corpus") inputs kept"
}

tools/build.sh fuzz
for harness in "${harnesses[@]}"; do fuzz "$(basename "$harness" .corpus)"; done
exit $status
