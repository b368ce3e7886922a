#!/usr/bin/env bash
# Runs the cores' test programs under valgrind: valgrind.sh BUILD_FOLDER [PROGRAM...]. The build must be without
# sanitizers (the preset dev). Tests with random input make a fiftieth of their rounds, unless KORVEL_TEST_ROUNDS_SHARE
# is set. Fails where a program had an error or a leak, or where a test failed.
set -euo pipefail
build=$1
shift

programs=("$@")
if [[ ${#programs[@]} -eq 0 ]]; then
    # Without the toolkit's: under valgrind posix_spawn succeeds where the program can't be started.
    mapfile -t programs < <(ctest --test-dir "$build" -N -L '^core$' | sed -n 's/^ *Test *#[0-9]*: \(.*_tests\)$/\1/p' | grep -v '^toolkit_')
fi

export QT_QPA_PLATFORM=offscreen
export KORVEL_TEST_ROUNDS_SHARE=${KORVEL_TEST_ROUNDS_SHARE:-0.02}
clean=0
for program in "${programs[@]}"; do
    echo "$program"
    valgrind --quiet --error-exitcode=9 --leak-check=full --errors-for-leak-kinds=definite \
        --child-silent-after-fork=yes "$build/bin/$program" --gtest_brief=1 && clean=$((clean + 1))
done
echo "$clean of ${#programs[@]} programs without an error"
[[ $clean -gt 0 && $clean -eq ${#programs[@]} ]]
