#!/usr/bin/env bash
# A short tour without a display: runs the model on the sample catchment and draws its results into tour/.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
korvel=$root/build/release/app/korvel
tour=$root/tour

rm -rf "$tour"
mkdir -p "$tour"
cp "$root"/samples/*.DAT "$tour"/

# The reaches from the first one down to the end of its chain, read from the summary that `info --json` prints.
chain_of() {
    "$korvel" info "$1" --json | tr -d '\n ' | grep -oE '"number":[0-9]+|"next":-?[0-9]+' | awk -F: '
        $1 ~ /number/ { number = $2; if (first == "") first = number }
        $1 ~ /next/ { next_of[number] = $2 }
        END { for (r = first; (r in next_of) && !(r in seen); r = next_of[r]) { seen[r]; printf "%s ", r } }'
}

echo "KORVEL, a short tour: no display was found, so that the windows stay closed."
for data in "$tour"/*.DAT; do
    echo
    echo "korvel run $(basename "$data") --wait"
    "$korvel" run "$data" --wait
    name=$(basename "$data" .DAT)
    results=$tour/${name^^}.SGR
    "$korvel" info "$results"
    read -r -a chain <<<"$(chain_of "$results")"
    [[ ${#chain[@]} -gt 0 ]] || { echo "$results holds no reaches" >&2; exit 1; }
    "$korvel" graph "$results" --from "${chain[0]}" --to "${chain[-1]}" --series 0,1,2 --output "${data%.DAT}-profile.png"
    several=$(IFS=,; echo "${chain[*]:0:3}")
    "$korvel" graph "$results" --reaches "$several" --series 1 --output "${data%.DAT}-reaches.png"
done

echo
echo "Written to $tour:"
ls -1 "$tour"
