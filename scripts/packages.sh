# Debian packages that building and testing need. Sourced by ./run and ./test.
#
# install_packages PACKAGE...: installs what is missing, as root or with sudo; says nothing when all is there.

BUILD_PACKAGES="g++ cmake ninja-build ccache qt6-base-dev qt6-serialport-dev qt6-svg-dev libqt6sql6-sqlite libmosquitto-dev libcli11-dev nlohmann-json3-dev"
TEST_PACKAGES="libgtest-dev librapidcheck-dev libbenchmark-dev libmodbus-dev mbpoll xvfb xauth appstream desktop-file-utils bash-completion hunspell hunspell-en-us fonts-dejavu-core python3 python3-jsonschema python3-pymodbus python3-serial python3-serial-asyncio strace mosquitto mosquitto-clients"

install_packages() {
    local missing=()
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "Needs root or sudo to install: ${missing[*]}" >&2; return 1; }
        root=(sudo)
    fi
    echo "Installing ${missing[*]}"
    "${root[@]}" apt-get update -qq
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        "${missing[@]}" >/dev/null
}
