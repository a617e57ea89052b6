# What every target of this project is compiled with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# What makes builds of this project faster is for a host to decide where it is part of the host's.
if(PROJECT_IS_TOP_LEVEL)
  # The cache has to be told that a precompiled header stands for what it was made from, and that
  # one build folder is like the other.
  find_program(TOLVANE_CCACHE ccache)
  if(TOLVANE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER
      "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros
      "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" "${TOLVANE_CCACHE}")
  endif()

  # Everything here links statically a dozen times over, for which the traditional linker is slow.
  find_program(TOLVANE_LLD ld.lld)
  if(TOLVANE_LLD)
    add_link_options(-fuse-ld=lld)
  endif()
endif()

add_library(tolvane_compiler INTERFACE)
target_compile_definitions(tolvane_compiler INTERFACE
  QT_NO_CAST_FROM_ASCII
  QT_NO_CAST_TO_ASCII
  QT_NO_KEYWORDS
  QT_NO_FOREACH
  QT_DISABLE_DEPRECATED_BEFORE=0x060400
  $<$<BOOL:${TOLVANE_DEVELOPER_BUILD}>:TOLVANE_DEVELOPER_BUILD>)
target_compile_options(tolvane_compiler INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  $<$<BOOL:${TOLVANE_WARNINGS_AS_ERRORS}>:-Werror>)

if(TOLVANE_SANITIZE)
  # Reports need lines, not variables, which take a sixth of the build's time.
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
  add_compile_options(${sanitizers})
  add_link_options(${sanitizers})
endif()

if(TOLVANE_BUILD_FUZZERS)
  # clang 14 cannot check the types of functions where there are coroutines.
  add_compile_options(-fsanitize=fuzzer-no-link -fno-sanitize=function)
endif()

# tolvane_precompile(TARGET HEADER...): parses the headers that most of the target's files include
# once for all of them. Off for the optimised builds, which so prove that each file includes what it
# uses.
function(tolvane_precompile target)
  if(TOLVANE_PRECOMPILE_HEADERS)
    target_precompile_headers(${target} PRIVATE ${ARGN})
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
  endif()
endfunction()
