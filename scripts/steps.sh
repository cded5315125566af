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

# build PRESET SECONDS SIGN TEXT TARGET...: builds the targets, which takes SECONDS of processor time from nothing (0:
# nobody has measured it); the program SIGN is there when they have been built once. What the compiler says is in
# build/PRESET/build.log, and on the screen where it fails.
build() {
    local preset=$1 seconds=$2 sign=$3 text=$4 log=build/$1/build.log bound="file by file, several times as long as by quick"
    shift 4
    [ "$seconds" -eq 0 ] || bound="about $((seconds / $(nproc))) s on $(nproc) quiet cores"
    [ ! -e "build/$preset/bin/$sign" ] || bound="what isn't there yet or has changed; all would take $bound"
    step "Build" "$text, $bound ..."
    ninja -C "build/$preset" "$@" 2>&1 | tee "$log" | progress || {
        { grep -v '^\[' "$log" || true; } | sed -n '1,60p' >&2  # reads to the end: a closed pipe would be a failure
        echo "The build failed; all that it said is in $log" >&2
        return 1
    }
    done_in
}

# may_write PRESET: after sudo ./run the folder of the build is root's; said before CMake stumbles over it.
may_write() {
    local other
    other=$(find build "build/$1" -maxdepth 1 ! -type l ! -writable -print -quit 2>/dev/null || true)
    [ -z "$other" ] || {
        echo "$other belongs to $(stat -c %U "$other"). To make the folder of the build yours: sudo chown -R $(id -un) build" >&2
        return 1
    }
}

# configure PRESET [OPTION...]: CMake's own words only where it fails.
configure() {
    local log
    mkdir -p build
    may_write "$1"
    log=build/configure-$1.log
    cmake --preset "$@" >"$log" 2>&1 || { cat "$log" >&2; return 1; }
}
