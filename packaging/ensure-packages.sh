# Sourced by run.sh, test.sh and .ci/run: ensure_packages PACKAGE... installs what is missing on a Debian
# system, as root or through sudo. Elsewhere it says what is needed and lets the build find out.

ensure_packages() {
    if ! command -v dpkg-query >/dev/null 2>&1; then
        echo "This system has no dpkg; needed are the equivalents of: $*" >&2
        return 0
    fi
    missing=
    for package in "$@"; do
        status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
        [ "$status" = installed ] || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    echo "Installing:$missing" >&2
    as_root=
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null 2>&1; then
            echo "Please install as root: apt-get install$missing" >&2
            return 1
        fi
        as_root=sudo
    fi
    # shellcheck disable=SC2086
    $as_root apt-get update -qq &&
        $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null
}

BUILD_PACKAGES="g++ cmake ninja-build ccache"
GUI_PACKAGES="qt6-base-dev qt6-svg-dev libgif-dev qt6-translations-l10n fonts-dejavu-core"
TEST_PACKAGES="libgtest-dev"
GUI_TEST_PACKAGES="xvfb openbox xdotool x11-utils imagemagick desktop-file-utils appstream"
CLANG_PACKAGES="clang libclang-rt-14-dev"
TOOL_PACKAGES="clang-format clang-tidy"
BENCH_PACKAGES="libbenchmark-dev libqcustomplot-dev libqcustomplot2.1-qt6"
PACKAGE_PACKAGES="dpkg-dev fakeroot file lintian desktop-file-utils appstream"
