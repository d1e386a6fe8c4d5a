# shellcheck shell=bash disable=SC2034
# The Debian packages that Velko needs, and a function that installs the missing ones. Sourced by ./run and ./test.

build_packages=(
    g++ cmake ninja-build ccache pkg-config
    qt6-base-dev qt6-declarative-dev qt6-declarative-dev-tools qt6-svg-dev libgl-dev libegl-dev
    libsimdjson-dev libsdl2-dev libarchive-dev libyaml-cpp-dev
    libxcb1-dev libxcb-randr0-dev libxcb-res0-dev libxcb-xtest0-dev libxcb-shm0-dev
)
# Debian's QML packages do not name each other, and one that is missing shows only at run time: each import is here.
run_packages=(
    qml6-module-qtquick qml6-module-qtqml qml6-module-qtqml-models qml6-module-qtqml-workerscript
    qt6-image-formats-plugins libgl1-mesa-dri fonts-inter fonts-noto-core fonts-dejavu-core
    at-spi2-core dbus
)
test_packages=(
    libgtest-dev libbenchmark-dev
    xvfb openbox xfwm4 xserver-xorg-core xserver-xorg-video-dummy x11-xserver-utils
    mgba-qt dolphin-emu retroarch libretro-gambatte xdotool
)
# What ./run needs when it has to bring its own display.
headless_packages=(xvfb openbox dbus at-spi2-core mgba-qt xdotool scrot)

# install_missing PACKAGE...: with root or sudo installs them, else prints the one line that does and stops.
install_missing() {
    local missing=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null || ! { sudo -n true 2>/dev/null || [ -t 0 ]; }; then
            echo "Velko needs some packages first. Please run as root: apt-get update && apt-get install --no-install-recommends ${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
