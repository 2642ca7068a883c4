# Warnings, sanitizers and the compiler cache, for our own code only.

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
    CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=true ${CCACHE})
endif()

add_library(quor_options INTERFACE)
target_compile_options(quor_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
  # Results must not depend on whether the machine fuses multiply and add.
  -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overflows and overlaps in its own std::string that are not there (its bug 105651).
  target_compile_options(quor_options INTERFACE -Wno-stringop-overflow -Wno-restrict -Wno-array-bounds)
endif()
if(QUOR_SANITIZE)
  target_compile_options(quor_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quor_options INTERFACE -fsanitize=address,undefined)
endif()
if(QUOR_SANITIZE_THREADS)
  target_compile_options(quor_options INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(quor_options INTERFACE -fsanitize=thread)
endif()
if(QUOR_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "The fuzz targets need clang: cmake --preset fuzz")
  endif()
  # A number that does not fit its whole number is not among what "undefined" stands for.
  target_compile_options(quor_options INTERFACE -fsanitize=address,undefined,float-cast-overflow
    -fsanitize=fuzzer-no-link -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quor_options INTERFACE -fsanitize=address,undefined)
endif()
