# How the tree is built: one library from the sources that each folder names, told by layer.
#
#   PURE     value types, arithmetic, layout, interaction logic: every build, the native one included
#   PAINTER  pure code that also draws on a CDC: Windows builds
#   SHELL    windows and messages: Windows builds

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

add_library(dayvane_flags INTERFACE)
# Sources are UTF-8; the texts of the library are narrow strings of code page 932.
# Two roundings where two are written, also on machines that multiply and add in one step: every build gives the same
# calendar.
if(MSVC)
  # With genuine MFC. Dayvane.dll derives from its classes, so it shares MFC's DLL and the runtime's with the program; the
  # static library has both inside.
  option(BUILD_SHARED_LIBS "Dayvane.dll instead of a static library" ON)
  set(dayvane_static_runtime "MultiThreaded$<$<CONFIG:Debug>:Debug>")
  if(BUILD_SHARED_LIBS)
    set(CMAKE_MFC_FLAG 2)
    set(CMAKE_MSVC_RUNTIME_LIBRARY "${dayvane_static_runtime}DLL")
  else()
    set(CMAKE_MFC_FLAG 1)
    set(CMAKE_MSVC_RUNTIME_LIBRARY "${dayvane_static_runtime}")
  endif()
  target_compile_options(dayvane_flags INTERFACE /source-charset:utf-8 /execution-charset:.932 /W3 /permissive- /bigobj
    /Zc:__cplusplus /fp:precise)
else()
  target_compile_options(dayvane_flags INTERFACE -finput-charset=UTF-8 -fexec-charset=CP932 -Wall -Wextra -Werror
    -Wno-unused-parameter -ffp-contract=off)
endif()
if(WIN32)
  target_compile_definitions(dayvane_flags INTERFACE _WIN32_WINNT=0x0601 WINVER=0x0601 _MBCS NOMINMAX STRICT)
  if(MSVC)
    target_compile_definitions(dayvane_flags INTERFACE _CRT_SECURE_NO_WARNINGS)
  elseif(CMAKE_SIZEOF_VOID_P EQUAL 4)
    # Doubles must not carry x87 excess precision: 32-bit and 64-bit builds give the same calendar.
    target_compile_options(dayvane_flags INTERFACE -msse2 -mfpmath=sse)
  endif()
endif()
set(DAYVANE_SANITIZE "" CACHE STRING "Sanitizer flags, for example -fsanitize=address,undefined")
if(DAYVANE_SANITIZE)
  separate_arguments(sanitize_flags UNIX_COMMAND "${DAYVANE_SANITIZE}")
  target_compile_options(dayvane_flags INTERFACE
    "$<$<NOT:$<BOOL:$<TARGET_PROPERTY:DAYVANE_PLAIN>>>:${sanitize_flags}>" -fno-omit-frame-pointer)
  target_link_options(dayvane_flags INTERFACE ${sanitize_flags})
endif()

# The headers as hosts see them, relative to the root of the tree or to include/dayvane of a package.
set(DAYVANE_MFC_DIRS mfc/base)
if(MSVC)
  set(DAYVANE_MFC_DIRS "") # the compiler has its own
elseif(WIN32)
  list(APPEND DAYVANE_MFC_DIRS mfc/win)
endif()
set(DAYVANE_INCLUDE_DIRS "${CMAKE_SOURCE_DIR}" "${CMAKE_SOURCE_DIR}/include" "${CMAKE_BINARY_DIR}/include")
foreach(dir ${DAYVANE_MFC_DIRS})
  list(APPEND DAYVANE_INCLUDE_DIRS "${CMAKE_SOURCE_DIR}/${dir}")
endforeach()

# The compiler's own DLLs. A host catches the exceptions of Dayvane.dll only when both share one unwinder, so these are
# never linked statically; they lie beside every program that is built here and beside the installed library.
set(DAYVANE_RUNTIME_DLLS "")
if(MINGW)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(unwinder libgcc_s_dw2-1.dll)
  else()
    set(unwinder libgcc_s_seh-1.dll)
  endif()
  foreach(dll ${unwinder} libstdc++-6.dll libwinpthread-1.dll)
    execute_process(COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=${dll}"
      OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT EXISTS "${path}")
      message(FATAL_ERROR "The compiler ${CMAKE_CXX_COMPILER} has no ${dll}")
    endif()
    file(REAL_PATH "${path}" path)
    list(APPEND DAYVANE_RUNTIME_DLLS "${path}")
  endforeach()
  file(COPY ${DAYVANE_RUNTIME_DLLS} DESTINATION "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
endif()

# Two thirds of the time of a Windows source go into the system's headers and MFC's: a target compiles them once.
function(dayvane_precompile target)
  if(WIN32)
    target_precompile_headers(${target} PRIVATE <cmake/precompiled.h> ${ARGN})
  endif()
endfunction()

define_property(GLOBAL PROPERTY DAYVANE_LIBRARY_SOURCES)
define_property(GLOBAL PROPERTY DAYVANE_PUBLIC_HEADERS)
define_property(GLOBAL PROPERTY DAYVANE_TEST_PROGRAMS)

function(dayvane_collect property)
  cmake_parse_arguments(arg "" "" "PURE;PAINTER;SHELL" ${ARGN})
  set(files ${arg_PURE})
  if(WIN32)
    list(APPEND files ${arg_PAINTER} ${arg_SHELL})
  endif()
  list(TRANSFORM files PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
  set(${property} ${files} PARENT_SCOPE)
endfunction()

# The headers that the reference describes, Windows' included in every build: public_headers.list, a line each.
file(WRITE "${CMAKE_BINARY_DIR}/public_headers.list" "")
function(dayvane_reference)
  foreach(header ${ARGN})
    file(APPEND "${CMAKE_BINARY_DIR}/public_headers.list" "${CMAKE_CURRENT_SOURCE_DIR}/${header}\n")
  endforeach()
endfunction()

# Names the library sources of the calling folder, and the headers that a host may include: HEADERS everywhere,
# WINDOW_HEADERS on Windows. Only these are installed; every header that one of them includes is among them.
function(dayvane_sources)
  cmake_parse_arguments(arg "" "" "HEADERS;WINDOW_HEADERS;PURE;PAINTER;SHELL" ${ARGN})
  dayvane_collect(files PURE ${arg_PURE} PAINTER ${arg_PAINTER} SHELL ${arg_SHELL})
  set_property(GLOBAL APPEND PROPERTY DAYVANE_LIBRARY_SOURCES ${files})
  set(headers ${arg_HEADERS})
  if(WIN32)
    list(APPEND headers ${arg_WINDOW_HEADERS})
  endif()
  list(TRANSFORM headers PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
  set_property(GLOBAL APPEND PROPERTY DAYVANE_PUBLIC_HEADERS ${headers})
  dayvane_reference(${arg_HEADERS} ${arg_WINDOW_HEADERS})
endfunction()

# What a host of the library needs to know: headers, folders, system libraries.
function(dayvane_describe_library target)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:dayvane_flags>)
  target_compile_features(${target} PUBLIC cxx_std_17)
  if(WIN32)
    set_target_properties(${target} PROPERTIES PREFIX "" OUTPUT_NAME Dayvane)
    if(MINGW)
      target_link_options(${target} INTERFACE -shared-libgcc)
    endif()
    target_link_libraries(${target} PUBLIC comctl32 comdlg32 oleaut32 ole32 imm32 usp10 msimg32 gdi32 user32)
  endif()
  get_property(headers GLOBAL PROPERTY DAYVANE_PUBLIC_HEADERS)
  target_sources(${target}
    PUBLIC FILE_SET HEADERS BASE_DIRS "${CMAKE_SOURCE_DIR}" FILES ${headers}
    PUBLIC FILE_SET entrance TYPE HEADERS BASE_DIRS "${CMAKE_SOURCE_DIR}/include" "${CMAKE_BINARY_DIR}/include"
    FILES "${CMAKE_SOURCE_DIR}/include/dayvane/Dayvane.h" "${CMAKE_BINARY_DIR}/include/dayvane/Version.h")
  foreach(dir ${DAYVANE_INCLUDE_DIRS})
    target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${dir}>)
  endforeach()
endfunction()

# What is packaged comes out with the same bytes each time: no time of the link in it.
function(dayvane_same_bytes target)
  if(MSVC)
    target_link_options(${target} PRIVATE /Brepro)
  else()
    target_link_options(${target} PRIVATE -Wl,--no-insert-timestamp)
  endif()
endfunction()

# Makes the library from all that the folders named: Dayvane.dll, or the pure layer as a static library. On Windows the
# tree's own programs, tests above all, use a DLL that exports every symbol; the one that is installed has the same
# objects and exports what the public headers name. Planner and samples link the latter (Dayvane::Dayvane). With Visual
# C++ it is a DLL that exports every function, or a static library.
function(dayvane_add_library)
  get_property(files GLOBAL PROPERTY DAYVANE_LIBRARY_SOURCES)
  if(MINGW)
    add_library(Dayvane SHARED ${files})
    # MinGW exports every symbol and imports data by itself, so classes need no decoration here.
    target_link_options(Dayvane PRIVATE -Wl,--export-all-symbols)
    dayvane_add_public_dll()
    add_library(Dayvane::Dayvane ALIAS DayvanePublic)
  elseif(MSVC AND BUILD_SHARED_LIBS)
    add_library(Dayvane SHARED ${files} "${CMAKE_SOURCE_DIR}/cmake/ExtensionModule.cpp")
    # CMake lists the functions of all objects in a .def file. Data is listed too, but a program must be told that it is
    # imported: DAYVANE_DLL does so (core/DataImport.h). Classes need no marks.
    set_target_properties(Dayvane PROPERTIES WINDOWS_EXPORT_ALL_SYMBOLS ON)
    target_compile_definitions(Dayvane PRIVATE _AFXEXT PUBLIC _AFXDLL INTERFACE DAYVANE_DLL)
    dayvane_same_bytes(Dayvane)
    add_library(Dayvane::Dayvane ALIAS Dayvane)
  else()
    add_library(Dayvane STATIC ${files})
    add_library(Dayvane::Dayvane ALIAS Dayvane)
  endif()
  dayvane_describe_library(Dayvane)
  dayvane_precompile(Dayvane)
endfunction()

function(dayvane_add_public_dll)
  get_property(headers GLOBAL PROPERTY DAYVANE_PUBLIC_HEADERS)
  set(def "${CMAKE_BINARY_DIR}/public/Dayvane.def")
  set(objects "${CMAKE_BINARY_DIR}/public/objects.list")
  file(GENERATE OUTPUT "${objects}" CONTENT "$<JOIN:$<FILTER:$<TARGET_OBJECTS:Dayvane>,EXCLUDE,[.]gch$>,\n>\n")
  add_custom_command(OUTPUT "${def}" COMMAND_EXPAND_LISTS
    DEPENDS $<TARGET_OBJECTS:Dayvane> ${headers} "${CMAKE_SOURCE_DIR}/cmake/exports.awk"
    COMMAND awk -v "nm=${CMAKE_NM} -g --defined-only @${objects}" -v "def=${def}" -f "${CMAKE_SOURCE_DIR}/cmake/exports.awk"
      ${headers})
  add_library(DayvanePublic SHARED $<TARGET_OBJECTS:Dayvane> "${def}")
  if(TARGET dayvane_resources)
    target_sources(DayvanePublic PRIVATE $<TARGET_OBJECTS:dayvane_resources>)
  endif()
  # What is linked with it runs beside the tree's DLL, in bin.
  add_dependencies(DayvanePublic Dayvane)
  dayvane_same_bytes(DayvanePublic)
  set_target_properties(DayvanePublic PROPERTIES EXPORT_NAME Dayvane LINKER_LANGUAGE CXX
    RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/public" ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/public")
  dayvane_describe_library(DayvanePublic)
endfunction()

# Test code gains little from the last optimisation, and there is much of it. With sanitizers each test file would take
# three times as long to compile; what they watch is the product.
set(dayvane_test_optimization -O1)
if(DAYVANE_SANITIZE AND NOT WIN32)
  list(APPEND dayvane_test_optimization -g1)
endif()

# dayvane_test(NAME [SANITIZED] [PURE files] [PAINTER files] [SHELL files] [LIBS libs]): one test program for the folder
# NAME. SANITIZED is for templates, which the tests compile.
function(dayvane_test name)
  cmake_parse_arguments(arg "SANITIZED" "" "PURE;PAINTER;SHELL;LIBS" ${ARGN})
  dayvane_collect(files PURE ${arg_PURE} PAINTER ${arg_PAINTER} SHELL ${arg_SHELL})
  if(NOT files)
    return()
  endif()
  add_executable(test_${name} ${files})
  target_link_libraries(test_${name} PRIVATE dayvane_test_support Dayvane dayvane_flags ${arg_LIBS})
  target_compile_options(test_${name} PRIVATE ${dayvane_test_optimization})
  if(NOT WIN32 AND NOT arg_SANITIZED)
    set_target_properties(test_${name} PROPERTIES DAYVANE_PLAIN ON)
  endif()
  if(WIN32)
    target_precompile_headers(test_${name} REUSE_FROM dayvane_test_support)
  endif()
  add_test(NAME ${name} COMMAND test_${name})
  set_property(GLOBAL APPEND PROPERTY DAYVANE_TEST_PROGRAMS test_${name})
endfunction()
