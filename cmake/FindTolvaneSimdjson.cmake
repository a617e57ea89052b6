# Finds simdjson as simdjson::simdjson. The version file of its CMake package accepts requests for the
# same minor version only, and some distributions ship a pkg-config file instead of that package.

include(FindPackageHandleStandardArgs)

find_package(simdjson QUIET CONFIG)
if(NOT simdjson_FOUND)
  find_package(PkgConfig QUIET)
  if(PkgConfig_FOUND)
    pkg_check_modules(simdjson QUIET IMPORTED_TARGET GLOBAL simdjson)
    if(simdjson_FOUND AND NOT TARGET simdjson::simdjson)
      add_library(simdjson::simdjson ALIAS PkgConfig::simdjson)
    endif()
  endif()
endif()
find_package_handle_standard_args(TolvaneSimdjson
  REQUIRED_VARS simdjson_FOUND
  VERSION_VAR simdjson_VERSION)
