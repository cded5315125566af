# A line for each step of a long work, with what it does, how long that takes, and how long it took. Sourced by ./run
# and ./test.

# step NAME TEXT: a step begins.
step() {
    step_began=$SECONDS
    printf '%-10s %s\n' "$1" "$2"
}

# done_in: it has ended.
done_in() { printf '%-10s done in %d s.\n' "" $((SECONDS - step_began)); }

# progress: turns the lines of the build into one that counts where a terminal looks on, into one a minute else.
progress() {
    local line last=$SECONDS
    while IFS= read -r line; do
        [[ $line == \[*/*\]* ]] || continue
        if [ -t 1 ]; then
            printf '\r%-10s %s ' "" "${line%%]*}]"
        elif [ $((SECONDS - last)) -ge 60 ]; then
            last=$SECONDS
            printf '%-10s %s\n' "" "${line%%]*}]"
        fi
    done
    [ ! -t 1 ] || printf '\r%-30s\r' ""
}

# build PRESET SECONDS TEXT TARGET...: builds the targets, which takes SECONDS of processor time from nothing. What the
# compiler says is in build/PRESET/build.log, and on the screen where it fails.
build() {
    local preset=$1 seconds=$2 text=$3 log=build/$1/build.log
    shift 3
    if [ -e "build/$preset/bin/counterctl" ]; then
        step "Build" "$text: what isn't there yet or has changed ..."
    else
        step "Build" "$text, about $((seconds / $(nproc))) s on $(nproc) quiet cores ..."
    fi
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
