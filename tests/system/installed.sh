#!/bin/sh
# installed.sh BUILD HOST: installs the build into an empty folder and builds the host there, once by CMake's package, once by
# pkg-config. Both must start with the installed library and tell the package's version.
set -eu
build=$1
host=$2
here=$(mktemp -d)
trap 'rm -rf "$here"' EXIT
cmake --install "$build" --prefix "$here/prefix" >"$here/install.log" || { cat "$here/install.log"; exit 1; }
for file in bin/custsearch bin/suitefiles include/orcussch.h share/man/man1/custsearch.1 share/man/man1/suitefiles.1; do
  [ -s "$here/prefix/$file" ] || { echo "$file was not installed"; exit 1; }
done

cmake -S "$host" -B "$here/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$here/prefix" >"$here/configure.log" || { cat "$here/configure.log"; exit 1; }
cmake --build "$here/cmake" >"$here/build.log" || { cat "$here/build.log"; exit 1; }
by_cmake=$("$here/cmake/installed_host")

PKG_CONFIG_PATH=$(dirname "$(find "$here/prefix" -name orcussch.pc)")
export PKG_CONFIG_PATH
# shellcheck disable=SC2046
cc "$host/host.c" -o "$here/by_pkgconfig" $(pkg-config --cflags --libs orcussch)
by_pkgconfig=$(LD_LIBRARY_PATH=$(dirname "$PKG_CONFIG_PATH") "$here/by_pkgconfig")

version=$(pkg-config --modversion orcussch)
[ "$by_cmake" = "$version" ] || { echo "the host built by CMake says $by_cmake, the package $version"; exit 1; }
[ "$by_pkgconfig" = "$version" ] || { echo "the host built by pkg-config says $by_pkgconfig, the package $version"; exit 1; }
[ "$("$here/prefix/bin/suitefiles" --version)" = "suitefiles $version" ] || { "$here/prefix/bin/suitefiles" --version; exit 1; }
