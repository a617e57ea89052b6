# What every target of this project is compiled with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_program(TOLVANE_CCACHE ccache)
if(TOLVANE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${TOLVANE_CCACHE}")
endif()

add_library(tolvane_compiler INTERFACE)
target_compile_definitions(tolvane_compiler INTERFACE
  QT_NO_CAST_FROM_ASCII
  QT_NO_CAST_TO_ASCII
  QT_NO_KEYWORDS
  QT_NO_FOREACH
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(tolvane_compiler INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  $<$<BOOL:${TOLVANE_WARNINGS_AS_ERRORS}>:-Werror>)

if(TOLVANE_SANITIZE)
  # Reports need lines, not variables, which take a sixth of the build's time.
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
  add_compile_options(${sanitizers})
  add_link_options(${sanitizers})
endif()
