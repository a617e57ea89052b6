# Finds simdjson as simdjson::simdjson. The version file of its CMake package accepts requests for the
# same minor version only, and some distributions ship a pkg-config file instead of that package.

include(FindPackageHandleStandardArgs)

find_package(simdjson QUIET CONFIG)
set(TolvaneSimdjson_version "${simdjson_VERSION}")
if(NOT TARGET simdjson::simdjson)
  find_package(PkgConfig QUIET)
  if(PkgConfig_FOUND)
    pkg_check_modules(TolvaneSimdjson_pc QUIET IMPORTED_TARGET GLOBAL simdjson)
    set(TolvaneSimdjson_version "${TolvaneSimdjson_pc_VERSION}")
    if(TARGET PkgConfig::TolvaneSimdjson_pc)
      add_library(simdjson::simdjson ALIAS PkgConfig::TolvaneSimdjson_pc)
    endif()
  endif()
endif()
if(TARGET simdjson::simdjson)
  set(TolvaneSimdjson_target simdjson::simdjson)
endif()
find_package_handle_standard_args(TolvaneSimdjson
  REQUIRED_VARS TolvaneSimdjson_target
  VERSION_VAR TolvaneSimdjson_version)
