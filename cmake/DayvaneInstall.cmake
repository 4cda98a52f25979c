# What an installed Dayvane consists of: the library, the compiler's DLLs that it needs, the headers in the folders that
# they name each other by, and the CMake package `Dayvane` with the target `Dayvane::Dayvane`.

include(CMakePackageConfigHelpers)

set(header_root include/dayvane)
set(package_dir lib/cmake/Dayvane)

target_include_directories(Dayvane INTERFACE
  $<INSTALL_INTERFACE:include> $<INSTALL_INTERFACE:${header_root}>)
foreach(dir ${DAYVANE_MFC_DIRS})
  target_include_directories(Dayvane INTERFACE $<INSTALL_INTERFACE:${header_root}/${dir}>)
endforeach()

install(TARGETS Dayvane EXPORT DayvaneTargets
  RUNTIME DESTINATION bin ARCHIVE DESTINATION lib LIBRARY DESTINATION lib)
install(FILES ${DAYVANE_RUNTIME_DLLS} DESTINATION bin)

install(FILES include/dayvane/Dayvane.h DESTINATION ${header_root})
foreach(folder ${DAYVANE_MFC_DIRS})
  install(DIRECTORY ${folder}/ DESTINATION ${header_root}/${folder} FILES_MATCHING PATTERN "*.h")
endforeach()
foreach(folder ${DAYVANE_FOLDERS})
  file(GLOB headers CONFIGURE_DEPENDS ${folder}/*.h)
  foreach(header ${headers})
    # Where there are no windows, the headers that need them stay behind.
    file(STRINGS "${header}" window_includes REGEX "#include [<\"](windows|afxwin|afxcmn|afxext|commctrl)\\.h[>\"]")
    if(WIN32 OR NOT window_includes)
      install(FILES "${header}" DESTINATION ${header_root}/${folder})
    endif()
  endforeach()
endforeach()

install(EXPORT DayvaneTargets NAMESPACE Dayvane:: FILE DayvaneConfig.cmake DESTINATION ${package_dir})
write_basic_package_version_file("${CMAKE_BINARY_DIR}/DayvaneConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_BINARY_DIR}/DayvaneConfigVersion.cmake" DESTINATION ${package_dir})
install(FILES LICENSE DESTINATION share/doc/dayvane)
