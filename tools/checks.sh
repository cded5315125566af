#!/usr/bin/env bash
# checks.sh [tidy|cppcheck|coverage|valgrind]...: what looks at all of the code, and takes longer than the suite. Each
# ends with 0 where nothing was found; without an argument all run. Needs clang-tidy, cppcheck, gcovr, valgrind.
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=$(nproc)

# The unit tests' programs, built under preset $1.
unit_programs() { find build/"$1"/bin -name '*_test*' ! -name 'gui_*' ! -name '*kill*' ! -name 'house_tests' | sort; }
unit_targets() { sed -n 's/^ *counter_test(\([a-z_]*\).*/\1/p' tests/unit/*/CMakeLists.txt; }

tidy() {
    cmake --preset debug >/dev/null
    # Precompiled headers are GCC's; clang reads the headers themselves.
    sed 's/-fpch-preprocess//; s/-Winvalid-pch//; s/-Wno-maybe-uninitialized//' \
        build/debug/compile_commands.json >build/compile_commands.json
    find src sim -name '*.cpp' -print0 | xargs -0 -P "$jobs" -n 1 clang-tidy --quiet -p build
}

cppcheck_() {
    cppcheck --std=c++20 --enable=warning,performance,portability --inline-suppr --error-exitcode=1 --quiet -j "$jobs" \
        -I src -I . --suppressions-list=tools/cppcheck.suppressions src sim
}

# Lines of the logic rooms that the unit tests run: 90 of 100 at least.
coverage() {
    cmake --preset debug -B build/coverage -DCMAKE_CXX_FLAGS="--coverage -O0" >/dev/null
    # shellcheck disable=SC2046
    cmake --build build/coverage --target $(unit_targets)
    find build/coverage -name '*.gcda' -delete
    unit_programs coverage | while read -r program; do "$program" --gtest_brief=1 >/dev/null; done
    gcovr -r . -j "$jobs" --filter src/ --exclude src/system --exclude src/desktop --exclude src/apps --fail-under-line 90 \
        --exclude-throw-branches --sort-uncovered build/coverage/src | tee build/coverage/lines.txt | tail -n 40
}

valgrind_() {
    cmake --preset release >/dev/null
    # shellcheck disable=SC2046
    cmake --build --preset release --target $(unit_targets)
    unit_programs release | xargs -P "$jobs" -I {} \
        valgrind --quiet --error-exitcode=1 --leak-check=full --errors-for-leak-kinds=definite {} --gtest_brief=1
}

for check in "${@:-tidy cppcheck coverage valgrind}"; do
    for one in $check; do
        echo "== $one"
        case $one in cppcheck | valgrind) "${one}_" ;; *) "$one" ;; esac
    done
done
