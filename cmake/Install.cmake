# Installs the library, its headers, the CMake package and the pkg-config file.
include(CMakePackageConfigHelpers)

set(VTLPICTEL_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/vtlpictel)

install(TARGETS vtlpictel
  EXPORT vtlpictelTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT vtlpictelTargets NAMESPACE vtlpictel:: DESTINATION ${VTLPICTEL_CMAKE_DIR})

configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/vtlpictelConfig.cmake.in ${PROJECT_BINARY_DIR}/vtlpictelConfig.cmake
  INSTALL_DESTINATION ${VTLPICTEL_CMAKE_DIR}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vtlpictelConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/vtlpictelConfig.cmake
  ${PROJECT_BINARY_DIR}/vtlpictelConfigVersion.cmake
  DESTINATION ${VTLPICTEL_CMAKE_DIR})

# The prefix is found from the place of the .pc file itself, so that `cmake --install --prefix` and DESTDIR, which are
# given only after this file is written, cannot make it wrong.
set(VTLPICTEL_PC_DIR ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH VTLPICTEL_PC_INCLUDEDIR ${VTLPICTEL_PC_DIR} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
file(RELATIVE_PATH VTLPICTEL_PC_PREFIX ${VTLPICTEL_PC_DIR} ${CMAKE_INSTALL_PREFIX})
configure_file(${CMAKE_CURRENT_LIST_DIR}/vtlpictel.pc.in ${PROJECT_BINARY_DIR}/vtlpictel.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vtlpictel.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
