# Installs the libraries, their headers, the QML module and the CMake and pkg-config packages.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(TOLVANE_INSTALL_QMLDIR "${CMAKE_INSTALL_LIBDIR}/qt6/qml" CACHE STRING
  "Folder of QML modules, below the prefix")
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/TolvaneSdk")

# Relative, so that the installed prefix can be moved.
if(APPLE)
  set(origin "@loader_path")
else()
  set(origin "$ORIGIN")
endif()
set_target_properties(TolvaneCore PROPERTIES EXPORT_NAME Core INSTALL_RPATH "")
set_target_properties(TolvaneSdk PROPERTIES EXPORT_NAME Sdk INSTALL_RPATH "${origin}")

set(parts Core Sdk)
if(TARGET TolvaneWidgets)
  set_target_properties(TolvaneWidgets PROPERTIES EXPORT_NAME Widgets INSTALL_RPATH "${origin}")
  list(APPEND parts Widgets)
endif()

# Each library has an export set of its own, so that a host of the core does not need Qt Quick.
foreach(part IN LISTS parts)
  string(TOLOWER "${part}" component)
  install(TARGETS Tolvane${part}
    EXPORT Tolvane${part}Targets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT ${component}
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT ${component}
      NAMELINK_COMPONENT dev
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT dev
    FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT dev
    INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
  install(EXPORT Tolvane${part}Targets
    NAMESPACE Tolvane::
    DESTINATION "${package_dir}"
    COMPONENT dev)
endforeach()

configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/TolvaneSdkConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/TolvaneSdkConfig.cmake"
  INSTALL_DESTINATION "${package_dir}"
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/TolvaneSdkConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/TolvaneSdkConfig.cmake"
  "${PROJECT_BINARY_DIR}/TolvaneSdkConfigVersion.cmake"
  DESTINATION "${package_dir}" COMPONENT dev)
if(NOT BUILD_SHARED_LIBS)
  install(FILES "${CMAKE_CURRENT_LIST_DIR}/FindTolvaneSimdjson.cmake"
    DESTINATION "${package_dir}" COMPONENT dev)
endif()

# pkg-config files, for builds without CMake. A host of static libraries also links their dependencies.
file(RELATIVE_PATH prefix_from_pc
  "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
if(BUILD_SHARED_LIBS)
  set(core_private ".private")
  set(static_flag "")
else()
  set(core_private "")
  set(static_flag " -DTOLVANE_STATIC")
endif()
foreach(part IN LISTS parts)
  string(TOLOWER "${part}" part)
  configure_file("${CMAKE_CURRENT_LIST_DIR}/tolvane-${part}.pc.in" tolvane-${part}.pc @ONLY)
  install(FILES "${CMAKE_CURRENT_BINARY_DIR}/tolvane-${part}.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT dev)
endforeach()

if(TARGET TolvaneQmlPlugin)
  set(module_dir "${TOLVANE_INSTALL_QMLDIR}/Tolvane")
  cmake_path(SET lib_from_module "/prefix/${CMAKE_INSTALL_LIBDIR}")
  cmake_path(RELATIVE_PATH lib_from_module BASE_DIRECTORY "/prefix/${module_dir}")
  set_target_properties(TolvaneQmlPlugin PROPERTIES INSTALL_RPATH "${origin}/${lib_from_module}")
  install(TARGETS TolvaneQmlPlugin DESTINATION "${module_dir}" COMPONENT qml)
  # The qmldir of the build is for hosts that link the library. The installed one also names the plugin.
  get_target_property(built TolvaneQmlApi QT_QML_MODULE_OUTPUT_DIRECTORY)
  file(READ "${built}/qmldir" qmldir)
  string(REPLACE "module Tolvane\n"
    "module Tolvane\nplugin tolvaneplugin\nclassname TolvanePlugin\n" qmldir "${qmldir}")
  file(WRITE "${PROJECT_BINARY_DIR}/installed-qmldir" "${qmldir}")
  install(FILES "${PROJECT_BINARY_DIR}/installed-qmldir" RENAME qmldir
    DESTINATION "${module_dir}" COMPONENT qml)
  # The library contains the views. The installed files are for tools that check a host's QML.
  install(DIRECTORY "${built}/" DESTINATION "${module_dir}" COMPONENT qml
    FILES_MATCHING PATTERN "*.qml" PATTERN "*.qmltypes" PATTERN "Private/qmldir")
endif()

include(TolvanePackages)
