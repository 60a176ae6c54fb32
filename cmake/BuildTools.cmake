# How every file is compiled and linked, whatever part it belongs to.

# Results must be equal on every machine: no fused multiply-add, and never -ffast-math or -march=native.
add_compile_options(-ffp-contract=off)

# Objects are shared between checkouts at different paths.
find_program(CCACHE_PROGRAM ccache)
mark_as_advanced(CCACHE_PROGRAM)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
        "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${CCACHE_PROGRAM}")
endif()

find_program(MOLD_PROGRAM mold)
mark_as_advanced(MOLD_PROGRAM)
if(MOLD_PROGRAM)
    include(CheckLinkerFlag)
    check_linker_flag(CXX -fuse-ld=mold TARNWICK_MOLD_WORKS)
    if(TARNWICK_MOLD_WORKS)
        add_link_options(-fuse-ld=mold)
    endif()
endif()

if(TARNWICK_LTO)
    include(CheckIPOSupported)
    check_ipo_supported(RESULT lto_works LANGUAGES CXX)
    set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ${lto_works})
endif()

# float-cast-overflow is no part of "undefined", though converting a double that doesn't fit is.
set(sanitizers -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all -fno-omit-frame-pointer)
if(TARNWICK_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "Fuzzing needs clang: cmake --preset fuzz")
    endif()
    add_compile_options(${sanitizers} -fsanitize=fuzzer-no-link)
    add_link_options(${sanitizers})
elseif(TARNWICK_SANITIZE)
    add_compile_options(${sanitizers})
    add_link_options(${sanitizers})
endif()
add_compile_definitions($<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
