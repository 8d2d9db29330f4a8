#!/usr/bin/env bash
# Builds build/web/ktl.html, the page in one file, and build/web/package, the npm package; installs what that needs.
#   tools/web.sh          builds
#   tools/web.sh test     builds, and runs the tests in node and in Chromium
set -euo pipefail
cd "$(dirname "$0")/.."
task=${1:-build}
case $task in build | test) ;; *) echo "tools/web.sh: nothing or 'test', not '$task'" >&2; exit 2 ;; esac

wanted=web
if [ "$task" = test ]; then wanted=web-tests; fi
tools/setup.sh --for $wanted
out=$PWD/build/web
mkdir -p $out

# Runs a command, and shows what it wrote only if it fails.
quietly() { "$@" >$out/log 2>&1 || { cat $out/log >&2; exit 1; }; }

# Packages of the lock file alone, and none of their scripts.
if ! cmp -s web/package-lock.json web/node_modules/installed; then
    (cd web && quietly npm ci --ignore-scripts --no-audit --no-fund)
    cp web/package-lock.json web/node_modules/installed
fi

quietly cmake -S web/module -B $out/module -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE="-O2 -DNDEBUG" \
    -DCMAKE_TOOLCHAIN_FILE=/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake
quietly cmake --build $out/module
wasm-opt -Oz --enable-exception-handling $out/module/ktl.wasm -o $out/ktl.wasm
xz --format=lzma --lzma1=preset=9e,lc=4,pb=0 --stdout $out/ktl.wasm >$out/ktl.wasm.lzma
echo "ktl.wasm: $(stat -c %s $out/ktl.wasm) bytes, $(stat -c %s $out/ktl.wasm.lzma) as .lzma"

web/node_modules/.bin/tsc -p web/tsconfig.json
web/node_modules/.bin/tsc -p web/tsconfig.types.json --outDir $out/package/types
node web/build.mjs $out/ktl.wasm.lzma $out

if [ "$task" = test ]; then
    web/node_modules/.bin/tsc -p web/tsconfig.test.json
    # Rows and what the native library makes of them.
    quietly cmake -S web/test -B $out/native -G Ninja -DCMAKE_BUILD_TYPE=Release
    quietly cmake --build $out/native
    $out/native/ktl_native_rows $out/native/rows
    node --test web/test/*.test.mjs
fi
