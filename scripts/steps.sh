# A line for each step of a long work, with what it does, how long that takes, and how long it took. Sourced by ./run
# and ./test.

# step NAME TEXT: a step begins.
step() {
    step_began=$SECONDS
    printf '%-10s %s\n' "$1" "$2"
}

# done_in: it has ended.
done_in() { printf '%-10s done in %d s.\n' "" $((SECONDS - step_began)); }

# progress: turns the lines of the build into one line that counts, where a terminal looks on.
progress() {
    local line
    while IFS= read -r line; do
        [ -t 1 ] && [[ $line == \[*/*\]* ]] && printf '\r%-10s %s ' "" "${line%%]*}]"
    done
    [ -t 1 ] && printf '\r%-30s\r' ""
    return 0
}

# build PRESET SECONDS TEXT TARGET...: builds the targets; SECONDS of processor time are what a file takes. What the
# compiler says is in build/PRESET/build.log, and on the screen where it fails.
build() {
    local preset=$1 seconds=$2 text=$3 log=build/$1/build.log files
    shift 3
    files=$(ninja -C "build/$preset" -n "$@" | grep -c '^\[' || true)
    if [ "$files" -eq 0 ] || ninja -C "build/$preset" -n "$@" | grep -q 'no work to do'; then
        step "Build" "$text: nothing to do."
        return 0
    fi
    step "Build" "$text: $files steps, about $((files * seconds / $(nproc) + 1)) s on a quiet machine ..."
    ninja -C "build/$preset" "$@" 2>&1 | tee "$log" | progress || {
        grep -v '^\[' "$log" | head -n 60 >&2
        echo "The build failed; all that it said is in $log" >&2
        return 1
    }
    done_in
}

# configure PRESET [OPTION...]: CMake's own words only where it fails.
configure() {
    local log
    mkdir -p build
    log=build/configure-$1.log
    cmake --preset "$@" >"$log" 2>&1 || { cat "$log" >&2; return 1; }
}
