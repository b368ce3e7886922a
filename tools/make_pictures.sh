#!/usr/bin/env bash
# Makes the pictures of the documents from the running program, on a screen of its own: make_pictures.sh [APP_FOLDER]
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
app=$(realpath "${1:-$root/build/release/app}")
pictures=$root/docs/pictures
screen=${KORVEL_SCREEN:-1366x768}
patience=60 # seconds

work=${TMPDIR:-/tmp}/korvel-pictures
mkdir "$work"
programs=()
end_all() {
    [[ ${#programs[@]} -eq 0 ]] || kill "${programs[@]}" 2>/dev/null || true
    wait
    rm -rf "$work"
}
trap end_all EXIT

unset WAYLAND_DISPLAY QT_QPA_PLATFORM
export HOME=$work KORVEL_THEME=${KORVEL_THEME:-light}
Xvfb -displayfd 3 -screen 0 "${screen}x24" -noreset -nolisten tcp 3>"$work/display" &>"$work/Xvfb.log" &
programs+=($!)
until [[ -s $work/display ]]; do sleep 0.05; done
DISPLAY=:$(<"$work/display")
export DISPLAY
openbox --sm-disable &>"$work/openbox.log" &
programs+=($!)

windows() {
    local id
    for id in $(xprop -root _NET_CLIENT_LIST | grep -o '0x[0-9a-f]*'); do
        echo "$id $(xdotool getwindowname "$id" 2>/dev/null)"
    done
}

# await TITLE [COUNT]: until the last of that many windows has this title and is in front.
await() {
    local id end=$((SECONDS + patience))
    while ((SECONDS < end)); do
        id=$(windows | awk -v title="$1" -v count="${2:-1}" '
            substr($0, index($0, " ") + 1) == title { last = $1; n++ }
            END { if (n >= count) print last }')
        if [[ -n $id ]]; then
            [[ $(xprop -root _NET_ACTIVE_WINDOW) == *"# $id" ]] && return
            xdotool windowactivate "$id"
        fi
        sleep 0.1
    done
    echo "no window '$1'; there are:" >&2
    windows >&2
    exit 1
}

await_gone() {
    local end=$((SECONDS + patience))
    while windows | grep -qF " $1"; do
        ((SECONDS < end)) || { echo "'$1' stays" >&2; exit 1; }
        sleep 0.1
    done
}

press() { xdotool key --delay 60 "$@"; }
choose_file() {
    await "$1"
    xdotool type --delay 20 "$2"
    press Return
    await_gone "$1"
}

# Once two looks at the screen show the same.
picture() {
    local before='' now end=$((SECONDS + patience))
    xdotool mousemove 0 0
    while ((SECONDS < end)); do
        import -window root "$work/now.png"
        now=$(identify -format '%#' "$work/now.png")
        [[ $now != "$before" ]] || break
        before=$now
        sleep 0.3
    done
    convert "$work/now.png" -strip -dither None -colors 64 -define png:compression-level=9 "PNG8:$pictures/$1.png"
    echo "$pictures/$1.png"
}

# cut FROM TO PLACE: a part of a picture.
cut() { convert "$pictures/$1.png" -crop "$3" +repage -define png:compression-level=9 "PNG8:$pictures/$2.png"; }

press_times() {
    local -i i
    for ((i = 0; i < $1; i++)); do press "$2"; done
}

# In the order of the tab key: the two reaches, then the series. Flow, BOD and ammonia.
choose_whole_river() { press Down Tab End Tab Home space ctrl+Down ctrl+Down ctrl+space ctrl+Down ctrl+space; }

data=$work/catchment
mkdir -p "$data" "$pictures" "$work/app"
cp "$root"/samples/*.DAT "$data/"
ln -s "$app"/korvelf157.exe "$work/app/"
printf '%s\r\n\r\nFalse\r\n' "Z:${data//\//\\}" >"$work/app/MISC.TXT"
until xprop -root _NET_CLIENT_LIST | grep -q 'window id'; do sleep 0.05; done

"$app/korvel" --application-folder "$work/app" &>"$work/korvel.log" &
programs+=($!)
title=$("$app/korvel" --version) title=${title^^}
until windows | grep -qF " $title"; do sleep 0.1; done
await "$(windows | command cut -d' ' -f2-)"

for file in ALDER2.DAT ALDER.DAT; do
    # R stands for two items in turn; after another letter it is the first one's.
    press alt+o Escape Escape alt+r 0
    choose_file "Open KORVEL data file ..." "$file"
    await "KORVEL model run: Finished - $file, run type 0"
    [[ $file == ALDER2.DAT ]] || picture engine-window
    press alt+c
    await_gone "KORVEL model run"
    await KORVEL
done
picture main-form # with the last runs

press alt+g
await "Korvel Graphical Results"
# Percentiles too: backwards from the first control to their box, and the same way back.
press_times 11 shift+Tab
press space
press_times 11 Tab
choose_whole_river
picture set-up-form
press alt+p
await "Korvel Graphical Results" 2
picture graph-mode-1
press alt+e
await "Korvel Graphical Results"

# Behind the list of series: the second mode, BOD in five reaches.
press Tab Down Down Down Tab Home space shift+Down shift+Down shift+Down shift+Down
press alt+p
await "Korvel Graphical Results" 2
picture graph-mode-2
press alt+e
await "Korvel Graphical Results"

# Behind the list of reaches and the six boxes: the plot types; six steps on, the first control again.
press alt+o Down Return
choose_file "Select Data File 2" ALDER2.SGR
await "Korvel Graphical Results"
press_times 7 Tab
press Up Up Down Down
press_times 6 Tab
choose_whole_river
press alt+p
await "Korvel Graphical Results" 2
press_times 40 ctrl+Right # the values at a point, beside the graph
picture comparison
press alt+e
await "Korvel Graphical Results"
press alt+e
await KORVEL

press alt+o Escape Escape alt+r Escape alt+r Return
await "Korvel Reports"
# What was written, where; then the determinands' menu.
press alt+s
until [[ -s $data/ALDER.csv ]]; do sleep 0.1; done
picture report-form
press Tab Tab Menu
picture report-menu
press Escape alt+F4
await KORVEL

press alt+b
await "Batch Run Data"
press space
choose_file "Select ONE data file for inclusion in Batch Run" ALDER.DAT
await "Batch Run Data"
picture batch-form

# The Explorer. In the order of the tab key: the picture, the tables' tabs; before the picture the side and the tool bar.
KORVEL_THEME=light "$app/korvel" explore "$data/ALDER.SGR" "$data/ALDER2.SGR" &>"$work/explorer.log" &
programs+=($!)
await "ALDER.SGR and 1 more - KORVEL Explorer"
xdotool mousemove 0 0
sleep 2 # until the focus is in the picture
press Home Next Next # to the panel of BOD
press_times 14 ctrl+Right
picture explorer
cut explorer explorer-network 1110x122+256+52

press_times 14 shift+Tab
press Down # Change
press_times 14 Tab
picture explorer-change
press_times 14 shift+Tab
press Up
press_times 14 Tab

# The tables as high as they may be.
press Escape Tab Right Right
xdotool mousemove 811 570 mousedown 1
for y in 540 400 320; do sleep 0.2; xdotool mousemove 811 $y; done
xdotool mouseup 1
picture explorer-compliance
press Right Tab Tab Tab ctrl+Home Down Down Down Down Down Down Down Down
picture explorer-fit
press shift+Tab shift+Tab shift+Tab Right Tab
xdotool type --delay 20 Phosphate
picture explorer-sources
for part in compliance fit sources; do cut explorer-$part explorer-$part 1110x424+256+318; done

python3 -B "$root/tools/page_pictures.py" "$app" "$pictures"
python3 -B "$root/tools/document_pictures.py" "$app" "$pictures"
