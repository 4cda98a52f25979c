# What an installed Dayvane consists of: the library, the compiler's DLLs that it needs, the headers in the folders that
# they name each other by, and the CMake package `Dayvane` with the targets `Dayvane::Dayvane` and, for calendar files
# alone, `Dayvane::ICal`.

include(CMakePackageConfigHelpers)

set(header_root include/dayvane)
set(package_dir lib/cmake/Dayvane)

set(library Dayvane)
if(TARGET DayvanePublic)
  set(library DayvanePublic)
endif()
foreach(dir ${DAYVANE_MFC_DIRS})
  target_include_directories(${library} INTERFACE $<INSTALL_INTERFACE:${header_root}/${dir}>)
endforeach()

install(TARGETS ${library} EXPORT DayvaneTargets
  RUNTIME DESTINATION bin ARCHIVE DESTINATION lib LIBRARY DESTINATION lib
  FILE_SET HEADERS DESTINATION ${header_root}
  FILE_SET entrance DESTINATION include)
install(TARGETS DayvaneICal EXPORT DayvaneTargets
  ARCHIVE DESTINATION lib
  FILE_SET HEADERS DESTINATION ${header_root})
install(FILES ${DAYVANE_RUNTIME_DLLS} DESTINATION bin)

install(EXPORT DayvaneTargets NAMESPACE Dayvane:: FILE DayvaneTargets.cmake DESTINATION ${package_dir})
set(DAYVANE_RUNTIME_NAMES "")
foreach(dll ${DAYVANE_RUNTIME_DLLS})
  cmake_path(GET dll FILENAME name)
  string(APPEND DAYVANE_RUNTIME_NAMES " ${name}")
endforeach()
configure_file("${CMAKE_CURRENT_LIST_DIR}/DayvaneConfig.cmake.in" "${CMAKE_BINARY_DIR}/DayvaneConfig.cmake" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/DayvaneConfig.cmake" DESTINATION ${package_dir})
write_basic_package_version_file("${CMAKE_BINARY_DIR}/DayvaneConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_BINARY_DIR}/DayvaneConfigVersion.cmake" DESTINATION ${package_dir})
install(FILES LICENSE DESTINATION share/doc/dayvane)

# dayvane_pkg_config(NAME DESCRIPTION CFLAGS LIBS): for builds that ask pkg-config.
function(dayvane_pkg_config pc_name pc_description pc_cflags pc_libs)
  configure_file("${CMAKE_SOURCE_DIR}/cmake/dayvane.pc.in" "${CMAKE_BINARY_DIR}/${pc_name}.pc" @ONLY)
  install(FILES "${CMAKE_BINARY_DIR}/${pc_name}.pc" DESTINATION lib/pkgconfig)
endfunction()
if(WIN32)
  dayvane_pkg_config(dayvane-ctl "Calendar and schedule controls with a C interface" "-I\${prefix}/include"
    "-lDayvaneCtl")
endif()
