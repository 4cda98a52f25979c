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

# Where there are no windows, the headers that need them stay behind: those that include a window header of MFC, and
# those that include one of these.
function(dayvane_window_headers result headers)
  set(found "")
  set(names "windows|afxwin|afxcmn|afxext|commctrl")
  set(last_names "")
  while(NOT names STREQUAL last_names)
    set(last_names "${names}")
    foreach(header ${headers})
      file(STRINGS "${CMAKE_SOURCE_DIR}/${header}" includes REGEX "#include [<\"](${names})\\.h[>\"]")
      if(includes AND NOT header IN_LIST found)
        list(APPEND found "${header}")
        string(REGEX REPLACE "\\.h$" "" name "${header}")
        string(APPEND names "|${name}")
      endif()
    endforeach()
  endwhile()
  set(${result} "${found}" PARENT_SCOPE)
endfunction()

set(patterns ${DAYVANE_FOLDERS})
list(TRANSFORM patterns APPEND "/*.h")
file(GLOB headers RELATIVE "${CMAKE_SOURCE_DIR}" CONFIGURE_DEPENDS ${patterns})
if(NOT WIN32)
  dayvane_window_headers(window_headers "${headers}")
  list(REMOVE_ITEM headers ${window_headers})
endif()
foreach(header ${headers})
  get_filename_component(folder "${header}" DIRECTORY)
  install(FILES "${header}" DESTINATION ${header_root}/${folder})
endforeach()

install(EXPORT DayvaneTargets NAMESPACE Dayvane:: FILE DayvaneConfig.cmake DESTINATION ${package_dir})
write_basic_package_version_file("${CMAKE_BINARY_DIR}/DayvaneConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_BINARY_DIR}/DayvaneConfigVersion.cmake" DESTINATION ${package_dir})
install(FILES LICENSE DESTINATION share/doc/dayvane)
