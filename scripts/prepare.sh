# Sourced by run.sh, test.sh and the scripts here: installs what the build needs where it is missing, and builds.
# shellcheck shell=sh

say() { printf '%s\n' "$*"; }

as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; elif command -v sudo >/dev/null 2>&1; then sudo "$@"; else
    say "This needs root or sudo: $*" >&2
    return 1
  fi
}

# install_missing PACKAGE...: only what is not there yet, so that a second run asks nobody.
install_missing() {
  missing=""
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing="$missing $package"
  done
  [ -z "$missing" ] && return 0
  say "Installing:$missing"
  as_root env DEBIAN_FRONTEND=noninteractive apt-get update -qq || return 1
  # shellcheck disable=SC2086
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null || {
    say "These packages could not be installed:$missing" >&2
    return 1
  }
}

BUILD_PACKAGES="g++ cmake ninja-build libsqlite3-dev qt6-base-dev libqt6svg6-dev libgl1-mesa-dev libgtest-dev libgmock-dev fonts-dejavu-core libxlsxwriter-dev pkgconf libshp-dev libzip-dev nlohmann-json3-dev libosmium2-dev libpq-dev"
RUN_PACKAGES="libqt6svg6 qt6-qpa-plugins fonts-liberation"
TEST_PACKAGES="libbenchmark-dev clang libclang-rt-14-dev sqlite3 python3 xvfb qpdf poppler-utils mupdf-tools unzip postgresql-15"
# The toolkit's own table model is measured with its driver of the store, a package of its own.
BENCH_PACKAGES="$RUN_PACKAGES libqt6sql6-sqlite"

# A compiler cache is used where there is one, so that a second checkout does not compile the same again.
if command -v ccache >/dev/null 2>&1; then
  export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
  export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1
  # What a cache needs to know of precompiled headers. A header that changes while it is compiled must stay out of it.
  export CCACHE_SLOPPINESS=pch_defines,time_macros
fi

# build PRESET [TARGET...]
build() {
  preset=$1
  shift
  cmake --preset "$preset" >"$LOGS/configure-$preset.log" 2>&1 || {
    tail -n 40 "$LOGS/configure-$preset.log" >&2
    return 1
  }
  if [ $# -gt 0 ]; then
    cmake --build --preset "$preset" --target "$@" >"$LOGS/build-$preset.log" 2>&1
  else
    cmake --build --preset "$preset" >"$LOGS/build-$preset.log" 2>&1
  fi || {
    grep -E 'error|Error|FAILED' "$LOGS/build-$preset.log" | head -n 40 >&2
    say "The build failed; all of it is in $LOGS/build-$preset.log" >&2
    return 1
  }
}
