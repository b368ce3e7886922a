#!/usr/bin/env bash
# Runs the cores' test programs under valgrind: valgrind.sh BUILD_FOLDER [PROGRAM...]. The build must be without
# sanitizers (the preset dev). Fails on the first program with an error or a leak.
set -euo pipefail
build=$1
shift

programs=("$@")
if [[ ${#programs[@]} -eq 0 ]]; then
    programs=(basic_tests form_scaling_tests results_tests graphs_setup_tests graphs_draw_tests reports_tests
        runs_tests app_tests help_tests commands_tests engine_tests platform_tests)
fi

for program in "${programs[@]}"; do
    echo "$program"
    QT_QPA_PLATFORM=offscreen valgrind --quiet --error-exitcode=9 --leak-check=full --errors-for-leak-kinds=definite \
        --child-silent-after-fork=yes "$build/bin/$program" --gtest_brief=1
done
