# The vector kernels of the engine. They need the headers of Highway; without them, or on another kind of machine, the
# engine runs one number at a time, with the same bits.
#
# Each set of kernels has the flags of its instructions. They are optimised in every build type, so that no inline
# function of the standard library is left in them as a copy that another file might be linked to.
find_path(KTL_HIGHWAY_INCLUDE_DIR hwy/highway.h)
if(KTL_HIGHWAY_INCLUDE_DIR AND CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|amd64")
    set(ktl_have_lanes ON)
else()
    set(ktl_have_lanes OFF)
endif()
option(KTL_VECTOR_LANES "Build the vector kernels for AVX2 and AVX-512 (needs the headers of Highway)" ${ktl_have_lanes})

set(ktl_avx2_flags -mavx2 -mfma -mbmi -mbmi2 -mf16c -maes -mpclmul)
set(ktl_avx512_flags ${ktl_avx2_flags} -mavx512f -mavx512cd -mavx512vl -mavx512dq -mavx512bw)

# ktl_lanes(target): the vector kernels, where they are built.
function(ktl_lanes target)
    set(kernels engine/kernels_scalar.cpp)
    if(KTL_VECTOR_LANES)
        list(APPEND kernels engine/kernels_avx2.cpp engine/kernels_avx512.cpp)
        set_source_files_properties(engine/kernels_avx2.cpp PROPERTIES COMPILE_OPTIONS "${ktl_avx2_flags}")
        set_source_files_properties(engine/kernels_avx512.cpp PROPERTIES COMPILE_OPTIONS "${ktl_avx512_flags}")
        target_include_directories(${target} SYSTEM PRIVATE ${KTL_HIGHWAY_INCLUDE_DIR})
        target_compile_definitions(${target} PRIVATE KTL_LANES)
    endif()
    set_property(SOURCE ${kernels} APPEND PROPERTY COMPILE_OPTIONS -O3 -fno-math-errno)
    target_sources(${target} PRIVATE ${kernels})
endfunction()
