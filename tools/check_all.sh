#!/usr/bin/env bash
# What ./test leaves to the night: `check_all.sh [CHECK...]`, by default test, tidy, valgrind, coverage, package, fuzz and
# mutants, one after another. It takes hours. Each one's output goes to build/check_all/CHECK.log; what came out of all
# that ever ran here stands in build/check_all/results.tsv and is put, as one table, into docs/testing.md.
set -uo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root" || exit 1
logs=build/check_all
mkdir -p "$logs"

check_test() { ./test; }
check_tidy() { tools/tidy.sh; }
check_valgrind() { tools/install_packages.sh test && tools/build.sh dev && tools/valgrind.sh build/dev; }
check_coverage() { ./test --coverage; }
check_package() { tools/package.sh; }
check_fuzz() { tools/fuzz.sh 600; }
check_mutants() { tools/mutate.py --count 300; }

checks=("$@")
if [[ ${#checks[@]} -eq 0 ]]; then checks=(test tidy valgrind coverage package fuzz mutants); fi
for check in "${checks[@]}"; do
    declare -F "check_$check" >/dev/null || { echo "No such check: $check" >&2; exit 2; }
done

failed=0
for check in "${checks[@]}"; do
    echo "$check"
    begin=$SECONDS status=0
    "check_$check" >"$logs/$check.log" 2>&1 </dev/null || status=$?
    case $status in
        0) outcome=passed ;;
        77) outcome=skipped ;;
        *) outcome=failed failed=1 ;;
    esac
    tools/check_table.py record "$logs/results.tsv" "$check" "$outcome" $((SECONDS - begin)) "$logs/$check.log"
done
tools/check_table.py write "$logs/results.tsv" docs/testing.md
exit $failed
