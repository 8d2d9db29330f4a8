#!/bin/sh
# Makes the Debian packages in build/packages, and looks at each of them: tools/packages.sh [CMAKE_ARGUMENT ...]. Installs what
# that needs and this machine lacks. If a package is not as it should be, all of them are deleted and it ends with status 1.
set -eu
cd "$(dirname "$0")/.."
tools/setup.sh --for packages
version=$(sed -n 's/^#define KTL_VERSION_[A-Z]* //p' include/ktl/version.h | paste -s -d .)
soname=${version%.*}
build=build/packages
mkdir -p build
rm -rf "$build"/*.deb "$build/_CPack_Packages"
echo "Building the libraries and the program in $build; the first time that takes a few minutes." >&2
# Every part by name, so that a missing one is an error.
{ cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr -DKTL_BUILD_TESTS=OFF \
    -DKTL_BUILD_PROGRAM=ON -DKTL_BUILD_FORTRAN=ON -DKTL_VECTOR_LANES=ON -DKTL_PICTURES=ON "$@" &&
    cmake --build "$build" && (cd "$build" && cpack -G DEB); } >"$build.log" 2>&1 ||
    { cat "$build.log" >&2; rm -f "$build"/*.deb; exit 1; }

wrong() {
    echo "tools/packages.sh: $1" >&2
    rm -f "$build"/*.deb
    exit 1
}

# check PACKAGE "DEPENDENCY ..." "PATH ...": the package depends on these packages and holds these files.
check() {
    package=$1
    deb=$(find "$build" -maxdepth 1 -name "${package}_${version}_*.deb")
    [ -n "$deb" ] || wrong "no package $package"
    depends=", $(dpkg-deb --field "$deb" Depends),"
    for dependency in $2; do
        case $depends in *", $dependency "* | *", $dependency,"*) ;; *) wrong "$package does not depend on $dependency:$depends" ;; esac
    done
    dpkg-deb --contents "$deb" >"$build/contents"
    for path in /usr/share/doc/"$package"/copyright /usr/share/doc/"$package"/README.md $3; do
        grep -q -- "$path\( -> .*\)\{0,1\}\$" "$build/contents" || wrong "$package lacks $path"
    done
}
check ktl "libc6 libstdc++6 libcairo2" "/usr/bin/ktl /man1/ktl.1 /completions/ktl /examples/heat_balance.csv"
check "libktl$soname" "libc6 libstdc++6" "/libktl.so.$soname"
check libktl-dev "libktl$soname" "/ktl/steam.h /ktl/steam.hpp /ktl/ktlftn.h /libktl.a /libktl_diagram.a /libktl.so /ktl.pc /ktl-config.cmake
    /examples/c/flash.c /examples/cpp/columns.cpp"
check "libktl-fortran$soname" "libktl$soname libgfortran5" "/libktl_fortran.so.$soname"
check libktl-fortran-dev "libktl-dev libktl-fortran$soname" "/ktl.mod /libktl_fortran.a /libktl_fortran.so /ktl_fortran.pc
    /examples/fortran/turbine.f90"
rm "$build/contents"
ls "$build"/*.deb
