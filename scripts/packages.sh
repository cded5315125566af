# Packages that running, building and testing need. Sourced by ./run and ./test.

RUN_PACKAGES="g++ cmake ninja-build pkgconf qt6-base-dev qt6-serialport-dev qt6-svg-dev libqt6sql6-sqlite libmosquitto-dev libcli11-dev nlohmann-json3-dev"
WINDOW_PACKAGES="qt6-qpa-plugins fonts-dejavu-core"
PACKAGE_PACKAGES="file dpkg-dev"  # what cpack calls to make a .deb
TEST_PACKAGES="$PACKAGE_PACKAGES libgtest-dev librapidcheck-dev libbenchmark-dev libmodbus-dev mbpoll xvfb xauth appstream desktop-file-utils rpm cpio bash-completion hunspell hunspell-en-us fonts-dejavu-core python3 python3-jsonschema python3-pymodbus python3-serial python3-serial-asyncio ser2net strace mosquitto mosquitto-clients"

RUN_IN_WORDS="a C++20 compiler, CMake 3.25, Ninja, Qt 6.4 with widgets, print support, SQL
(its SQLite plugin), serial port and SVG, libmosquitto, CLI11 and JSON for Modern C++, each with its headers"
TEST_IN_WORDS="$RUN_IN_WORDS;
GoogleTest, RapidCheck, Google Benchmark and libmodbus as well, and the programs among TEST_PACKAGES in
scripts/packages.sh"

# missing_packages PACKAGE...: prints those that aren't installed.
missing_packages() {
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || echo "$package"
    done
}

# install_packages PACKAGE...: installs them, as root or with sudo.
install_packages() {
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "Needs root or sudo to install: $*" >&2; return 1; }
        root=(sudo)
    fi
    "${root[@]}" apt-get update -qq
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "$@" >/dev/null
}

# ensure_packages WORDS PACKAGE...: a step of its own. What another system than Debian or Ubuntu lacks, its user
# installs: WORDS tell what, and CMake then what it does not find.
ensure_packages() {
    local words=$1
    shift
    if ! command -v apt-get >/dev/null; then
        step "Packages" "this is no Debian or Ubuntu; needed are $words."
        return 0
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    if [ ${#missing[@]} -eq 0 ]; then
        step "Packages" "all are there."
        return 0
    fi
    step "Packages" "installing ${#missing[@]} and what they need, a minute to four by disk and network ..."
    install_packages "${missing[@]}"
    done_in
}
