# The kernels of the engine: for one number at a time, and for vector lanes. Lanes need the headers of Highway; without
# them, or on another kind of machine, the engine runs one number at a time, with the same bits.
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
option(KTL_SMALL_KERNELS "Build kernels that compile quickly, for tools/mutants.py" OFF)
mark_as_advanced(KTL_SMALL_KERNELS)

set(ktl_avx2_flags -mavx2 -mfma -mbmi -mbmi2 -mf16c -maes -mpclmul)
set(ktl_avx512_flags ${ktl_avx2_flags} -mavx512f -mavx512cd -mavx512vl -mavx512dq -mavx512bw)

# ktl_kernels: their objects and the search of one row, which the shared and the static library share.
function(ktl_add_kernels)
    add_library(ktl_kernels OBJECT ${CMAKE_CURRENT_SOURCE_DIR}/engine/kernels/kernels_scalar.cpp
                                   ${CMAKE_CURRENT_SOURCE_DIR}/engine/rows/row.cpp)
    ktl_target(ktl_kernels)
    target_include_directories(ktl_kernels PRIVATE ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
    # Sanitizers multiply the code, which has to stay small there.
    if(KTL_SMALL_KERNELS OR CMAKE_CXX_FLAGS MATCHES "-fsanitize")
        target_compile_options(ktl_kernels PRIVATE -O1 -fno-math-errno)
        target_compile_definitions(ktl_kernels PRIVATE KTL_SMALL_KERNELS)
    else()
        target_compile_options(ktl_kernels PRIVATE -O3 -fno-math-errno)
    endif()
    set_target_properties(ktl_kernels PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden
                                                 VISIBILITY_INLINES_HIDDEN ON)
    if(KTL_VECTOR_LANES)
        foreach(set IN ITEMS avx2 avx512)
            target_sources(ktl_kernels PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/engine/kernels/kernels_${set}.cpp)
            set_source_files_properties(engine/kernels/kernels_${set}.cpp PROPERTIES COMPILE_OPTIONS "${ktl_${set}_flags}")
        endforeach()
        target_include_directories(ktl_kernels SYSTEM PRIVATE ${KTL_HIGHWAY_INCLUDE_DIR})
        target_compile_definitions(ktl_kernels PRIVATE KTL_LANES)
    endif()
endfunction()

# ktl_use_kernels(target): links them in, and tells the choice among them which there are.
function(ktl_use_kernels target)
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:ktl_kernels>)
    if(KTL_VECTOR_LANES)
        target_compile_definitions(${target} PRIVATE KTL_LANES)
    endif()
endfunction()
