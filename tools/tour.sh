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

# show COMMAND...: says which command is run, and runs it.
show() {
    printf '\n$ korvel'
    printf ' %s' "$@"
    printf '\n'
    "$korvel" "$@"
}

echo "KORVEL, a short tour: no display was found, so that the windows stay closed."
cd "$tour"
for data in *.DAT; do
    show run "$data" --wait
done
first=(*.SGR)
show info "${first[0]}"
read -r -a chain <<<"$(chain_of "${first[0]}")"
[[ ${#chain[@]} -gt 0 ]] || { echo "${first[0]} holds no reaches" >&2; exit 1; }
several=$(IFS=,; echo "${chain[*]:0:3}")
run_of_reaches=(--from "${chain[0]}" --to "${chain[-1]}" --series 0,1,2)
show graph "${first[0]}" "${run_of_reaches[@]}" --output profile.png
show graph "${first[0]}" --reaches "$several" --series 1 --output reaches.png
if [[ ${#first[@]} -gt 1 ]]; then
    show graph "${first[0]}" --compare "${first[1]}" "${run_of_reaches[@]}" --output comparison.pdf
fi
show report "${first[0]}" --determinands 1,2,3 --statistics mean,95 --output report.pdf
show csv "${first[0]}" --output report.csv
show listing "${first[0]%.SGR}.OUT" --output listing.pdf

# What the runs say: verdicts, what the second run changes, where a load comes from, the fit to samples.
show compliance "${first[@]:0:2}" --by determinand
if [[ ${#first[@]} -gt 1 ]]; then show changes "${first[@]:0:2}" --by river --series 2; fi
show sources "${first[0]}" --determinand 4 --by kind
show fit "${first[0]}" --statistics mean
show check "${first[0]}"
show table "${first[@]:0:2}" --output table.csv

# What is handed on: a page for any browser, a PDF document, a workbook.
show publish "${first[@]:0:2}" --output page.html
show atlas "${first[@]:0:2}" --output atlas.pdf
if [[ ${#first[@]} -gt 1 ]]; then show changes "${first[@]:0:2}" --output changes.xlsx; fi

echo
echo "Pictures, pages and files are in $tour:"
for file in profile.png reaches.png comparison.pdf report.pdf report.csv listing.pdf table.csv page.html \
    atlas.pdf changes.xlsx; do
    [[ ! -e $file ]] || echo "  $tour/$file"
done
