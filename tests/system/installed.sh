#!/bin/sh
# installed.sh BUILD HOST README HAND: installs the build into an empty folder and builds the host there, once by CMake's package,
# once by pkg-config. Both must start with the installed library and tell the package's version. Then the example that README
# prints is built and run as it is, and the installed custsearch, with a user's hand (HAND) at the windows.
set -eu
build=$1
host=$2
readme=$3
hand=$4
here=$(mktemp -d)
trap 'rm -rf "$here"' EXIT
cmake --install "$build" --prefix "$here/prefix" >"$here/install.log" || { cat "$here/install.log"; exit 1; }
for file in bin/custsearch bin/suitefiles include/orcussch.h libexec/orcussch/orcussch-display-probe share/man/man1/custsearch.1 share/man/man1/suitefiles.1 bin/streets share/orcussch/map.zds share/man/man1/streets.1; do
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

sed -n '/^```c$/,/^```$/p' "$readme" | sed '/^```/d' >"$here/example.c"
[ -s "$here/example.c" ] || { echo "README has no example in C"; exit 1; }
# shellcheck disable=SC2046
cc -std=c99 -Wall -Wextra -Wpedantic -Werror "$here/example.c" -o "$here/example" $(pkg-config --cflags --libs orcussch)
# shellcheck disable=SC2046
c++ -std=c++20 -Wall -Wextra -Wpedantic -Wno-missing-field-initializers -Werror -x c++ -fsyntax-only $(pkg-config --cflags orcussch) "$here/example.c"

cd "$here"
mkdir home
LD_LIBRARY_PATH=$(dirname "$PKG_CONFIG_PATH")
export LD_LIBRARY_PATH HOME="$here/home" XDG_STATE_HOME="$here/home/state" XDG_RUNTIME_DIR="$here/home"
prefix/bin/suitefiles demo suite --company 1 --customers 20 --seed 1 >suitefiles.log 2>&1 || { cat suitefiles.log; exit 1; }
said=$(LD_PRELOAD=$hand QT_QPA_PLATFORM=offscreen timeout 60 ./example) || { echo "the example failed: $said"; exit 1; }
case $said in *[1-9]*) ;; *) echo "the example says $said"; exit 1 ;; esac
said=$(LD_PRELOAD=$hand QT_QPA_PLATFORM=offscreen timeout 60 prefix/bin/custsearch --data suite --json) || { echo "custsearch failed: $said"; exit 1; }
case $said in '{"Customer":'[1-9]*'"CustomerLastName":"'[A-Z]*) ;; *) echo "custsearch says $said"; exit 1 ;; esac

# The installation stands elsewhere than where it was built for; the display is tried all the same.
for program in ./example "prefix/bin/custsearch --data suite"; do
  said=$(env -u QT_QPA_PLATFORM -u WAYLAND_DISPLAY DISPLAY=:9797 $program 2>&1) && { echo "$program works without a display"; exit 1; }
  case $said in *":9797"*) ;; *) echo "$program says $said"; exit 1 ;; esac
done
