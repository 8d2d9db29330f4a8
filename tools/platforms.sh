#!/usr/bin/env bash
# Builds the library for other platforms, runs the digest of bits (tests/platforms/digest.cpp) on each and compares it with
# that of the native build: tools/platforms.sh [PLATFORM...], all of them if none is named. Prints the table of
# docs/platforms.md. Installs the Debian packages that the named platforms need. The name "measure" prints what that document
# says of stack, evaluations and floating-point flags.
#
# The kernels are the small ones (KTL_SMALL_KERNELS), except for the lanes of aarch64-lanes: the full ones have the same
# source and take minutes for each platform. Exit status 1 if a build fails or a bit of the ktl:: calls differs.
set -euo pipefail
cd "$(dirname "$0")/.."

all="native no-fma libcxx cmake-3.22 i686 aarch64 aarch64-lanes s390x armhf windows windows-tests wasm controller"
work=$PWD/build/platforms
mkdir -p "$work"
failed=0
result=0
# The digest has the options of the library itself.
digest_flags="-std=c++20 -O1 -fno-fast-math -ffp-contract=off -Iinclude -Itests tests/platforms/digest.cpp"

need() { # PACKAGE...
    local missing=() package
    for package; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    local as_root=""
    if [ "$(id -u)" -ne 0 ]; then as_root=sudo; fi
    echo "Installing: ${missing[*]}" >&2
    export DEBIAN_FRONTEND=noninteractive
    $as_root apt-get update -qq >/dev/null
    $as_root apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# build NAME CMAKE-ARGUMENT...: the libraries, lean. CMAKE is the program.
build() {
    local name=$1
    shift
    rm -f "$work/$name/CMakeCache.txt" # another compiler would keep half of it
    if ! { ${CMAKE:-cmake} -S . -B "$work/$name" -G Ninja -DCMAKE_BUILD_TYPE=Release -DKTL_BUILD_TESTS=OFF \
        -DKTL_BUILD_PROGRAM=OFF -DKTL_BUILD_FORTRAN=OFF -DKTL_SMALL_KERNELS=ON "$@" &&
        ${CMAKE:-cmake} --build "$work/$name"; } >"$work/$name.log" 2>&1; then
        tail -40 "$work/$name.log" >&2
        return 1
    fi
}

# same LINES: whether these lines of the digest are those of the native build.
same() { if diff -q <(grep -E "$1" "$work/native.txt") <(grep -E "$1" "$work/$2.txt") >/dev/null; then echo same; else echo differ; fi; }

row() { printf '| %s | %s | %s | %s | %s | %s |\n' "$@"; }

# The headers of CLI11 alone, apart from those of this system's C library.
headers_of_cli11() {
    mkdir -p "$work/cli11"
    ln -sfn /usr/include/CLI "$work/cli11/CLI"
    cat >"$work/cli11/CLI11Config.cmake" <<'END'
if(NOT TARGET CLI11::CLI11)
    add_library(CLI11::CLI11 INTERFACE IMPORTED)
    set_target_properties(CLI11::CLI11 PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${CMAKE_CURRENT_LIST_DIR})
endif()
END
}

# program_of_windows COMPILER: ktl.exe in the cases of the program's tests, whose list a native build with tests has.
program_of_windows() {
    [ -e build/release/CTestTestfile.cmake ] || return 0
    cat >"$work/ktl" <<END
#!/bin/sh
export WINEDEBUG=-all WINEPREFIX='$work/wine' LC_ALL=C.UTF-8
messages=\$(mktemp)
wine '$work/windows/apps/ktl/ktl.exe' "\$@" 2>"\$messages"
result=\$?
tr -d '\\r' <"\$messages" >&2
rm -f "\$messages"
exit \$result
END
    chmod +x "$work/ktl"
    local cases verdict=same
    cases=$(tools/platforms/program_cases.py build/release "$work/ktl") || { failed=1; verdict=differ; }
    row windows-program "$1" scalar "wine, ktl.exe, $cases cases of its tests" "$verdict" -
}

# The tests of the library by GoogleTest, built for Windows.
tests_of_windows() {
    local for_windows=(-DCMAKE_BUILD_TYPE=Release -DCMAKE_SYSTEM_NAME=Windows -DCMAKE_SYSTEM_PROCESSOR=x86_64
        -DCMAKE_C_COMPILER=x86_64-w64-mingw32-gcc-posix -DCMAKE_CXX_COMPILER=x86_64-w64-mingw32-g++-posix)
    local gtest=$work/googletest/prefix tests=$work/windows-tests cases=0 failures=0 count program
    export WINEDEBUG=-all WINEPREFIX=$work/wine
    if ! { cmake -S /usr/src/googletest -B "$work/googletest" -G Ninja "${for_windows[@]}" -DBUILD_GMOCK=OFF \
        -DCMAKE_INSTALL_PREFIX="$gtest" && cmake --build "$work/googletest" && cmake --install "$work/googletest" &&
        cmake -S . -B "$tests" -G Ninja "${for_windows[@]}" -DKTL_SMALL_KERNELS=ON -DKTL_BUILD_TESTS=ON \
        -DKTL_BUILD_PROGRAM=OFF -DKTL_BUILD_FORTRAN=OFF -DGTest_DIR="$gtest/lib/cmake/GTest" \
        -DCMAKE_EXE_LINKER_FLAGS=-static -DCMAKE_CROSSCOMPILING_EMULATOR=/usr/bin/wine &&
        cmake --build "$tests" --target ktl_tests ktl_finders_tests ktl_engine_tests; } >"$tests.log" 2>&1; then
        tail -40 "$tests.log" >&2
        failed=1
        return 0
    fi
    for program in ktl_tests finders/ktl_finders_tests engine/ktl_engine_tests; do
        wine "$tests/tests/$program.exe" >"$work/tests.txt" 2>&1 || { failures=1; grep -E "FAILED|Failure" "$work/tests.txt" >&2; }
        count=$(sed -n 's/.*PASSED  \] \([0-9]*\) test.*/\1/p' "$work/tests.txt")
        cases=$((cases + ${count:-0}))
    done
    [ "$failures" = 0 ] || failed=1
    row windows-tests "MinGW-w64 g++ $(version x86_64-w64-mingw32-g++-posix)" scalar \
        "wine, $cases tests of the library passed" "$([ "$failures" = 0 ] && echo same || echo differ)" -
}

# report NAME COMPILER KERNELS RUN-BY COMMAND...: runs the digest and prints a row of the table.
report() {
    local name=$1 compiler=$2 kernels=$3 by=$4
    shift 4
    "$@" | tr -d '\r' >"$work/$name.txt" || { failed=1; row "$name" "$compiler" "$kernels" "$by" "does not run" "-"; return; }
    local calls named
    calls=$(same '^( |p|t|s|h|u|v|line [^s]|line  )' "$name")
    named=$(same '^(equations|finders|errors)' "$name")
    [ "$calls" = same ] || failed=1
    row "$name" "$compiler" "$kernels" "$by" "$calls" "$named"
}

version() { "$1" -dumpfullversion -dumpversion; }

native_built=""
build_native() {
    [ -z "$native_built" ] || return 0
    need g++ cmake ninja-build
    build native -DKTL_VECTOR_LANES=OFF -DBUILD_SHARED_LIBS=OFF
    # shellcheck disable=SC2086  # a list of words
    g++ $digest_flags "$work/native/src/libktl.a" -pthread -o "$work/native/digest"
    "$work/native/digest" >"$work/native.txt"
    native_built=yes
}

# linux NAME TRIPLET FLAGS EMULATOR [CMAKE-ARGUMENT...]: a cross compiler of GCC, run by an emulator of one process.
linux() {
    local name=$1 triplet=$2 flags=$3 emulator=$4
    shift 4
    build "$name" -DCMAKE_SYSTEM_NAME=Linux -DCMAKE_SYSTEM_PROCESSOR="${name%%-*}" -DBUILD_SHARED_LIBS=OFF \
        -DCMAKE_CXX_COMPILER="$triplet-g++" -DCMAKE_CXX_FLAGS="$flags" "${@:--DKTL_VECTOR_LANES=OFF}"
    # shellcheck disable=SC2086  # lists of words
    $triplet-g++ $flags $digest_flags "$work/$name/src/libktl.a" -static -pthread -o "$work/$name/digest" 2>/dev/null
    report "$name" "g++ $(version "$triplet-g++")" "$([ $# -gt 0 ] && echo lanes || echo scalar)" \
        "${emulator:-this processor}" $emulator "$work/$name/digest"
}

platform() {
    case $1 in
    native) report native "g++ $(version g++)" scalar "this processor" "$work/native/digest" ;;
    no-fma) # the C library without fused multiply-add, as on older processors
        report no-fma "g++ $(version g++)" scalar "exp and log without FMA" env \
            GLIBC_TUNABLES=glibc.cpu.hwcaps=-FMA,-FMA4,-AVX2 "$work/native/digest" ;;
    libcxx)
        need clang-16 libc++-16-dev libc++abi-16-dev
        build libcxx -DCMAKE_CXX_COMPILER=clang++-16 -DCMAKE_CXX_FLAGS=-stdlib=libc++ -DKTL_VECTOR_LANES=OFF -DBUILD_SHARED_LIBS=OFF
        # shellcheck disable=SC2086
        clang++-16 -stdlib=libc++ $digest_flags "$work/libcxx/src/libktl.a" -pthread -o "$work/libcxx/digest"
        report libcxx "clang++ 16 with libc++" scalar "this processor" "$work/libcxx/digest" ;;
    cmake-3.22) # from PyPI; installs the library and builds the consumer of tests/consumer with it
        need python3-venv
        [ -x "$work/cmake/bin/cmake" ] || { python3 -m venv "$work/cmake" && "$work/cmake/bin/pip" -q install 'cmake==3.22.*'; } >&2
        CMAKE=$work/cmake/bin/cmake build cmake-3.22 -DKTL_VECTOR_LANES=OFF -DCMAKE_INSTALL_PREFIX="$work/cmake-3.22/prefix"
        {
            "$work/cmake/bin/cmake" --install "$work/cmake-3.22"
            "$work/cmake/bin/cmake" -S tests/consumer/project -B "$work/cmake-3.22/consumer" -G Ninja \
                -DCMAKE_PREFIX_PATH="$work/cmake-3.22/prefix"
            "$work/cmake/bin/cmake" --build "$work/cmake-3.22/consumer"
            "$work/cmake-3.22/consumer/with_ktl"
        } >"$work/cmake-3.22.log" 2>&1 || { tail -20 "$work/cmake-3.22.log" >&2; return 1; }
        # shellcheck disable=SC2086
        g++ $digest_flags "$work/cmake-3.22/src/libktl.a" -pthread -o "$work/cmake-3.22/digest"
        report cmake-3.22 "g++ $(version g++)" scalar "this processor" "$work/cmake-3.22/digest" ;;
    i686)
        need g++-i686-linux-gnu
        linux i686 i686-linux-gnu "-msse2 -mfpmath=sse" "" ;;
    aarch64)
        need g++-aarch64-linux-gnu qemu-user
        linux aarch64 aarch64-linux-gnu "" qemu-aarch64 ;;
    aarch64-lanes) # the headers of Highway alone: those of the host's C library must not be found beside them
        need g++-aarch64-linux-gnu qemu-user libhwy-dev
        mkdir -p "$work/highway"
        ln -sfn /usr/include/hwy "$work/highway/hwy"
        linux aarch64-lanes aarch64-linux-gnu "" qemu-aarch64 -DKTL_VECTOR_LANES=ON \
            -DKTL_HIGHWAY_INCLUDE_DIR="$work/highway" ;;
    s390x)
        need g++-s390x-linux-gnu qemu-user
        linux s390x s390x-linux-gnu "" qemu-s390x ;;
    armhf)
        need g++-arm-linux-gnueabihf qemu-user
        linux armhf arm-linux-gnueabihf "" qemu-arm ;;
    windows) # the DLL, the static library and the program
        need g++-mingw-w64-x86-64-posix wine64 wine libcli11-dev
        headers_of_cli11
        build windows -DKTL_BUILD_PROGRAM=ON -DCLI11_DIR="$work/cli11" -DCMAKE_SYSTEM_NAME=Windows -DCMAKE_SYSTEM_PROCESSOR=x86_64 -DCMAKE_CXX_COMPILER=x86_64-w64-mingw32-g++-posix
        local gxx=x86_64-w64-mingw32-g++-posix
        # shellcheck disable=SC2086
        $gxx $digest_flags "$work/windows/src/libktl.a" -static -o "$work/windows/src/static.exe"
        # shellcheck disable=SC2086
        $gxx $digest_flags -DKTL_SHARED_BUILD "$work/windows/src/libktl.dll.a" -static -o "$work/windows/src/shared.exe"
        export WINEDEBUG=-all WINEPREFIX=$work/wine
        report windows "MinGW-w64 g++ $(version $gxx)" scalar "wine, libktl.a" wine "$work/windows/src/static.exe"
        report windows-dll "MinGW-w64 g++ $(version $gxx)" scalar "wine, ktl.dll" wine "$work/windows/src/shared.exe"
        program_of_windows "MinGW-w64 g++ $(version $gxx)" ;;
    windows-tests)
        need g++-mingw-w64-x86-64-posix wine64 wine googletest
        tests_of_windows ;;
    wasm) # the core and the ktl:: calls on a stack of 64 KiB
        need emscripten nodejs
        build wasm -DCMAKE_TOOLCHAIN_FILE=/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake -DKTL_VECTOR_LANES=OFF -DBUILD_SHARED_LIBS=OFF -DKTL_THREADS=OFF -DKTL_REPORTS=OFF
        # shellcheck disable=SC2086
        em++ $digest_flags -DKTL_NO_THREADS "$work/wasm/src/libktl.a" -s TOTAL_STACK=65536 -s EXIT_RUNTIME=1 \
            -o "$work/wasm/digest.js" >"$work/wasm.log" 2>&1
        local old_fetch="" # its loader takes the fetch() of newer nodes for a browser's
        if node --no-experimental-fetch -e 0 2>/dev/null; then old_fetch=--no-experimental-fetch; fi
        report wasm "emscripten $(emcc -dumpversion)" scalar "node, stack of 64 KiB" node $old_fetch "$work/wasm/digest.js" ;;
    controller)
        need gcc-arm-none-eabi libnewlib-arm-none-eabi libstdc++-arm-none-eabi-newlib
        controller ;;
    measure) measure ;;
    *) echo "tools/platforms.sh: unknown platform $1; there are: $all" >&2; exit 2 ;;
    esac
}

# A microcontroller without an operating system: compiled, not run. Prints the size of what one call brings in.
controller() {
    local flags="-mcpu=cortex-m7 -mthumb -mfpu=fpv5-d16 -mfloat-abi=hard -fno-exceptions -fno-rtti -fno-threadsafe-statics"
    flags="$flags -ffunction-sections -fdata-sections -Wno-psabi"
    build controller -DCMAKE_SYSTEM_NAME=Generic -DCMAKE_SYSTEM_PROCESSOR=arm -DCMAKE_CXX_COMPILER=arm-none-eabi-g++ \
        -DCMAKE_TRY_COMPILE_TARGET_TYPE=STATIC_LIBRARY -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_CXX_FLAGS_RELEASE="-Os -DNDEBUG" \
        -DKTL_VECTOR_LANES=OFF -DBUILD_SHARED_LIBS=OFF -DKTL_THREADS=OFF -DKTL_REPORTS=OFF -DKTL_INSTALL=OFF
    local call size
    size=""
    for call in 'ktl::state(ktl::Pair::ph, 100.0, 2800.0).t()' 'ktl_d2(x, x)' 'ktl_pt(x)'; do
        printf '#include <ktl/ktlftn.h>\n#include <ktl/steam.hpp>\ndouble x = 100.0;\nvolatile double y;\nint main() { y = %s; }\n' "$call" >"$work/one.cpp"
        # shellcheck disable=SC2086
        arm-none-eabi-g++ -std=c++20 $flags -Os -DKTL_NO_THREADS -Iinclude "$work/one.cpp" "$work/controller/src/libktl.a" \
            -Wl,--gc-sections --specs=nosys.specs -o "$work/controller/one.elf" 2>/dev/null
        size="$size, $(arm-none-eabi-size "$work/controller/one.elf" | awk 'NR == 2 { printf "%.0f kB", ($1 + $2) / 1000 }') for ${call%%(*}"
    done
    row controller "arm-none-eabi-g++ $(version arm-none-eabi-g++)" scalar "compiled only${size}" - -
}

# Stack, evaluations and flags, by programs of tools/platforms.
measure() {
    local flags="-std=c++20 -O1 -fno-fast-math -ffp-contract=off -Iinclude -Isrc -Itests" name library
    for name in flags stack; do
        library=$work/native/src/libktl.a
        # The kernels of the release build, if there is one, need more stack.
        if [ $name = stack ] && [ -e build/release/src/libktl.a ]; then library=build/release/src/libktl.a; fi
        # shellcheck disable=SC2086
        g++ $flags tools/platforms/$name.cpp "$library" -pthread -o "$work/$name"
        "$work/$name"
    done
    # shellcheck disable=SC2046,SC2086
    g++ $flags -DKTL_SMALL_KERNELS -DKTL_COUNT_EVALUATIONS tools/platforms/evaluations.cpp \
        $(find src -name '*.cpp' ! -name 'kernels_[an]*' ! -name silent.cpp) -pthread -o "$work/evaluations"
    "$work/evaluations"
}

row platform compiler kernels "run by" "\`ktl::\` calls" "named routines"
row --- --- --- --- --- ---
build_native
for name in ${*:-$all}; do
    # In a process of its own, so that it ends at the first command that fails; 3: a bit differs, and its row says so.
    (
        platform "$name"
        exit $((failed * 3))
    ) &
    status=0
    wait $! || status=$?
    if [ $status -ne 0 ]; then result=1; fi
    if [ $status -ne 0 ] && [ $status -ne 3 ]; then row "$name" - - "does not build" - -; fi
done
exit $result
