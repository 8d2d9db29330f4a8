# The kernels of the engine: for one number at a time, and for vector lanes. Lanes need the headers of Highway; without
# them, or on another kind of machine, the engine runs one number at a time, with the same bits.
#
# Each set of kernels has the flags of its instructions. They are optimised in every build type, so that no inline
# function of the standard library is left in them as a copy that another file might be linked to.
#
# Off on 64-bit Windows with GCC: it aligns the stack there to 16 bytes only, and some builds of it store AVX registers on it
# with instructions that need 32 or 64.
find_path(KTL_HIGHWAY_INCLUDE_DIR hwy/highway.h)
set(ktl_lane_sets)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|amd64" AND CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(ktl_lane_sets avx2 avx512)
    set(ktl_lanes_definition KTL_LANES)
elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "aarch64|ARM64|arm64")
    set(ktl_lane_sets neon)
    set(ktl_lanes_definition KTL_NEON_LANES)
endif()
set(ktl_have_lanes OFF)
if(NOT ktl_lane_sets)
    set(ktl_lanes_need "an x86-64 or a 64-bit ARM machine")
elseif(MSVC OR (WIN32 AND CMAKE_CXX_COMPILER_ID STREQUAL GNU))
    set(ktl_lanes_need "another compiler than this one for Windows")
else()
    set(ktl_lanes_need "Highway's headers (Debian: libhwy-dev), columns take several times as long without")
    set(ktl_have_lanes ${KTL_HIGHWAY_INCLUDE_DIR})
endif()
ktl_part(KTL_VECTOR_LANES "vector lanes" ON ktl_have_lanes "${ktl_lanes_need}"
         "Build the vector kernels: AVX2 and AVX-512, or NEON")
option(KTL_SMALL_KERNELS "Build kernels that compile quickly, for tools/mutants.py" OFF)
mark_as_advanced(KTL_SMALL_KERNELS)

set(ktl_avx2_flags -mavx2 -mfma -mbmi -mbmi2 -mf16c -maes -mpclmul)
# GCC interleaves independent operations only if asked to; columns take 3 to 12 % less time then. For lanes alone: single numbers
# gain nothing, and for Windows, which has no lanes, it then puts the end of a function before its work.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    list(APPEND ktl_avx2_flags -fschedule-insns -fsched-pressure)
endif()
set(ktl_avx512_flags ${ktl_avx2_flags} -mavx512f -mavx512cd -mavx512vl -mavx512dq -mavx512bw)
set(ktl_neon_flags -march=armv8-a+crypto) # Highway asks for the latter; nothing here uses it

# ktl_kernels: their objects and the search of one row, which the shared and the static library share.
function(ktl_add_kernels)
    add_library(ktl_kernels OBJECT ${CMAKE_CURRENT_SOURCE_DIR}/engine/kernels/kernels_scalar.cpp
                                   ${CMAKE_CURRENT_SOURCE_DIR}/engine/rows/row.cpp)
    ktl_target(ktl_kernels)
    target_include_directories(ktl_kernels PRIVATE ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
    if(NOT KTL_THREADS)
        target_compile_definitions(ktl_kernels PRIVATE KTL_NO_THREADS)
    endif()
    # Sanitizers multiply the code, which has to stay small there; other compilers do not know the attribute that inlines it.
    if(KTL_SMALL_KERNELS OR MSVC OR CMAKE_CXX_FLAGS MATCHES "-fsanitize")
        if(NOT MSVC)
            target_compile_options(ktl_kernels PRIVATE -O1 -fno-math-errno)
        endif()
        target_compile_definitions(ktl_kernels PRIVATE KTL_SMALL_KERNELS)
    else()
        target_compile_options(ktl_kernels PRIVATE -O3 -fno-math-errno)
        # Clang inlines only the calls of a flattened function itself, not theirs.
        if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
            target_compile_options(ktl_kernels PRIVATE "SHELL:-mllvm -inline-threshold=20000")
        endif()
    endif()
    set_target_properties(ktl_kernels PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden
                                                 VISIBILITY_INLINES_HIDDEN ON)
    if(KTL_VECTOR_LANES)
        foreach(set IN LISTS ktl_lane_sets)
            target_sources(ktl_kernels PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/engine/kernels/kernels_${set}.cpp)
            set_source_files_properties(engine/kernels/kernels_${set}.cpp PROPERTIES COMPILE_OPTIONS "${ktl_${set}_flags}")
        endforeach()
        target_include_directories(ktl_kernels SYSTEM PRIVATE ${KTL_HIGHWAY_INCLUDE_DIR})
        target_compile_definitions(ktl_kernels PRIVATE ${ktl_lanes_definition})
    endif()
endfunction()

# ktl_use_kernels(target): links them in, and tells the choice among them which there are.
function(ktl_use_kernels target)
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:ktl_kernels>)
    if(KTL_VECTOR_LANES)
        target_compile_definitions(${target} PRIVATE ${ktl_lanes_definition})
    endif()
endfunction()
