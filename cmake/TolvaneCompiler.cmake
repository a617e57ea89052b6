# Compiler settings of all targets of this project.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# Faster builds, for this project alone: a host that adds it as a subdirectory decides for itself.
if(PROJECT_IS_TOP_LEVEL)
  # ccache must accept precompiled headers, and share its results between build folders.
  find_program(TOLVANE_CCACHE ccache)
  if(TOLVANE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER
      "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros
      "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" "${TOLVANE_CCACHE}")
  endif()

  # A build links many programs, for which the default linker is slow.
  find_program(TOLVANE_LLD ld.lld)
  if(TOLVANE_LLD AND UNIX AND NOT APPLE)
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
set(clang_warnings
  -Wcomma -Wconditional-uninitialized -Wextra-semi -Wloop-analysis
  -Wunreachable-code-aggressive -Wunused-exception-parameter)
if(MSVC)
  target_compile_options(tolvane_compiler INTERFACE
    /W4 $<$<BOOL:${TOLVANE_WARNINGS_AS_ERRORS}>:/WX>)
else()
  target_compile_options(tolvane_compiler INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    "$<$<CXX_COMPILER_ID:Clang>:${clang_warnings}>"
    # GCC 14 warns of an empty std::optional that is moved, in optimised builds.
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_GREATER_EQUAL:$<CXX_COMPILER_VERSION>,13>>:-Wno-maybe-uninitialized>
    $<$<BOOL:${TOLVANE_WARNINGS_AS_ERRORS}>:-Werror>)
endif()

if(TOLVANE_SANITIZE)
  # Reports need line numbers only; debug data of variables takes a sixth of the build time.
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
  add_compile_options(${sanitizers})
  add_link_options(${sanitizers})
endif()

if(TOLVANE_BUILD_FUZZERS)
  # clang 14 does not support -fsanitize=function in code with coroutines.
  add_compile_options(-fsanitize=fuzzer-no-link -fno-sanitize=function)
endif()

# Programs share precompiled headers with libraries. GCC 14 accepts them with the same flags only.
if(TOLVANE_PRECOMPILE_HEADERS)
  set(CMAKE_CXX_COMPILE_OPTIONS_PIE ${CMAKE_CXX_COMPILE_OPTIONS_PIC})
endif()

# tolvane_precompile(TARGET HEADER...): precompiles headers that most files of the target include.
# Optimised builds leave this off, and so check that each file includes what it uses.
function(tolvane_precompile target)
  if(TOLVANE_PRECOMPILE_HEADERS)
    target_precompile_headers(${target} PRIVATE ${ARGN})
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
  endif()
endfunction()
