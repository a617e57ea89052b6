# The Debian packages: one for each library, one for the QML module, and one for development.

if(NOT PROJECT_IS_TOP_LEVEL)
  return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tolvanesdk)
set(CPACK_PACKAGE_CONTACT "TolvaneSdk maintainers <maintainers@tolvane.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(CPACK_COMPONENTS_ALL core sdk widgets qml dev)
set(same "(= ${PROJECT_VERSION})")
set(core libtolvanecore${PROJECT_VERSION_MAJOR})
set(sdk libtolvanesdk${PROJECT_VERSION_MAJOR})

set(CPACK_DEBIAN_CORE_PACKAGE_NAME ${core})
set(CPACK_DEBIAN_CORE_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_CORE_DESCRIPTION "Logic of a customer-support messenger for Qt applications")

set(CPACK_DEBIAN_SDK_PACKAGE_NAME ${sdk})
set(CPACK_DEBIAN_SDK_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_SDK_PACKAGE_DEPENDS
  "${core} ${same}, qml6-module-qtquick, qml6-module-qtquick-window, qml6-module-qtqml-workerscript")
set(CPACK_DEBIAN_SDK_PACKAGE_RECOMMENDS
  "qt6-image-formats-plugins, qml6-module-qtquick-dialogs, qml6-module-qtquick-controls, \
qml6-module-qtquick-layouts, qml6-module-qt-labs-folderlistmodel")
set(CPACK_COMPONENT_SDK_DESCRIPTION "Customer-support messenger for Qt applications")

set(widgets libtolvanewidgets${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_WIDGETS_PACKAGE_NAME ${widgets})
set(CPACK_DEBIAN_WIDGETS_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_WIDGETS_PACKAGE_DEPENDS "${sdk} ${same}")
set(CPACK_COMPONENT_WIDGETS_DESCRIPTION "Widget of the customer-support messenger")

set(CPACK_DEBIAN_QML_PACKAGE_NAME qml6-module-tolvane)
set(CPACK_DEBIAN_QML_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_QML_PACKAGE_DEPENDS "${sdk} ${same}")
set(CPACK_COMPONENT_QML_DESCRIPTION "QML module of the customer-support messenger")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libtolvanesdk-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS
  "${core} ${same}, ${sdk} ${same}, ${widgets} ${same}, qt6-base-dev (>= 6.4), qt6-declarative-dev (>= 6.4)")
set(CPACK_COMPONENT_DEV_DESCRIPTION "Headers and build files of the customer-support messenger")

include(CPack)
