# Flags, and the functions that every folder uses.

# The sloppiness lets the cache work with precompiled headers; no source depends on the time of its compilation.
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}
      CCACHE_NOHASHDIR=1 CCACHE_DEPEND=1
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE_PROGRAM})
endif()
find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_link_options(-fuse-ld=mold)
endif()

add_library(velmora_flags INTERFACE)
target_compile_definitions(velmora_flags INTERFACE QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII
    QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
target_compile_options(velmora_flags INTERFACE -Wall -Wextra -Wconversion -Wno-sign-conversion
    -Wno-float-conversion -Wshadow -Wnon-virtual-dtor -Werror)
if(VELMORA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer
      -O1 -g1)
  add_link_options(-fsanitize=address,undefined)
endif()

# Headers of libraries that most sources read are compiled once for each of four sets: with or without widgets, for the program
# or its tests. With -DVELMORA_PRECOMPILE=OFF a source that forgot an include of its own doesn't compile.
option(VELMORA_PRECOMPILE "Precompile the headers of libraries" ON)
set(VELMORA_CORE_HEADERS <algorithm> <array> <cmath> <cstdint> <functional> <map> <memory> <optional> <set> <span> <string>
    <unordered_map> <utility> <vector> <QByteArray> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash> <QImage> <QLocale>
    <QPainter> <QPainterPath> <QPixmap> <QRegularExpression> <QString> <QStringList> <QVariant> <QGuiApplication>)
set(VELMORA_WIDGET_HEADERS <QAction> <QApplication> <QBoxLayout> <QCheckBox> <QComboBox> <QDialog> <QKeyEvent> <QLabel> <QLineEdit>
    <QMenuBar> <QMimeData> <QMouseEvent> <QPointer> <QPushButton> <QScrollBar> <QTimer> <QToolBar> <QToolButton>)
set(VELMORA_TEST_HEADERS <gmock/gmock.h> <gtest/gtest.h>)

# velmora_header_set(NAME HEADERS header... LINK target...): a target whose precompiled headers others reuse.
function(velmora_header_set name)
  cmake_parse_arguments(ARG "" "" "HEADERS;LINK" ${ARGN})
  set(source ${CMAKE_BINARY_DIR}/headers/${name}.cpp)
  if(NOT EXISTS ${source})
    file(WRITE ${source} "")
  endif()
  add_library(${name} OBJECT ${source})
  target_link_libraries(${name} PRIVATE velmora_flags ${ARG_LINK})
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

# velmora_precompiled(TARGET SET): lets a target use the set SET (core, widgets, tests or widget_tests), which is made when it
# is first asked for.
function(velmora_precompiled target set)
  if(NOT VELMORA_PRECOMPILE)
    return()
  endif()
  if(NOT TARGET headers_${set})
    set(headers ${VELMORA_CORE_HEADERS})
    set(link Qt6::Gui)
    if(set MATCHES "widget")
      list(APPEND headers ${VELMORA_WIDGET_HEADERS})
      list(APPEND link Qt6::Widgets)
    endif()
    if(set MATCHES "tests")
      list(APPEND headers ${VELMORA_TEST_HEADERS})
      list(APPEND link GTest::gmock)
    endif()
    if(set STREQUAL "widget_tests")
      list(APPEND headers <QTest>)
      list(APPEND link Qt6::Test)
    endif()
    velmora_header_set(headers_${set} HEADERS ${headers} LINK ${link})
  endif()
  target_precompile_headers(${target} REUSE_FROM headers_${set})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -fpch-preprocess)
  endif()
endfunction()

# velmora_library(NAME [FOLDERS dir...] [MOC] [LINK target...])
# A static library of all sources in the current folder, or in the folders named; not in folders below these.
function(velmora_library name)
  cmake_parse_arguments(ARG "MOC" "" "FOLDERS;LINK" ${ARGN})
  if(NOT ARG_FOLDERS)
    set(ARG_FOLDERS .)
  endif()
  set(patterns)
  foreach(folder IN LISTS ARG_FOLDERS)
    string(REPLACE "/./" "/" path ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/)
    list(APPEND patterns ${path}*.cpp ${path}*.h)
  endforeach()
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  if(NOT sources MATCHES "\\.cpp")
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${CMAKE_SOURCE_DIR})
    target_link_libraries(${name} INTERFACE ${ARG_LINK})
    return()
  endif()
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE velmora_flags PUBLIC ${ARG_LINK})
  if(ARG_LINK MATCHES "Widgets|diagram_view|timeline_setup")
    velmora_precompiled(${name} widgets)
  else()
    velmora_precompiled(${name} core)
  endif()
  if(ARG_MOC)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
  endif()
endfunction()

# velmora_release_date(FORMAT VARIABLE): the day of release.
function(velmora_release_date format variable)
  set(ENV{SOURCE_DATE_EPOCH} ${VELMORA_RELEASED})
  string(TIMESTAMP date ${format} UTC)
  set(${variable} ${date} PARENT_SCOPE)
endfunction()

# Two components are installed. The usual one is a folder that runs from anywhere, with the programs and all they need in its
# root; the component "system", for a prefix like /usr, has that folder as lib/velmora.
set(VELMORA_SYSTEM_FOLDER lib/velmora)

# velmora_deliver(FILES|DIRECTORY|TARGETS name...): into the folder of the programs.
function(velmora_deliver)
  install(${ARGN} DESTINATION . COMPONENT folder)
  install(${ARGN} DESTINATION ${VELMORA_SYSTEM_FOLDER} COMPONENT system EXCLUDE_FROM_ALL)
endfunction()

# velmora_share(FILES name... [RENAME name] TO folder): into a folder of share/, where desktops look.
function(velmora_share)
  cmake_parse_arguments(ARG "" "RENAME;TO" "FILES" ${ARGN})
  set(name)
  if(ARG_RENAME)
    set(name RENAME ${ARG_RENAME})
  endif()
  install(FILES ${ARG_FILES} DESTINATION share/${ARG_TO} ${name} COMPONENT folder)
  install(FILES ${ARG_FILES} DESTINATION share/${ARG_TO} ${name} COMPONENT system EXCLUDE_FROM_ALL)
endfunction()

# velmora_program(TARGET): an executable that belongs to the program. Every edition gets a copy, the installed folder too: programs
# look for each other beside themselves.
function(velmora_program target)
  set_property(GLOBAL APPEND PROPERTY VELMORA_PROGRAMS ${target})
  velmora_deliver(TARGETS ${target})
endfunction()

# What every test runs with. The leak checker leaves thread-local storage alone: reading that of a thread that is just ending
# makes it crash now and then. What libraries keep there alone is named in tests/lsan.supp.
set(VELMORA_TEST_ENVIRONMENT QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 ASAN_OPTIONS=detect_leaks=1:intercept_tls_get_addr=0
    UBSAN_OPTIONS=print_stacktrace=1 LSAN_OPTIONS=use_tls=0:print_suppressions=0:suppressions=${CMAKE_SOURCE_DIR}/tests/lsan.supp)

# velmora_test(FOLDER [MOC] [LINK target...] [WITH source...])
# One executable test_FOLDER (slashes become underscores) of all sources in tests/FOLDER, not below it, and of those of other
# folders that it shares; run by ctest.
function(velmora_test folder)
  cmake_parse_arguments(ARG "MOC" "" "LINK;WITH" ${ARGN})
  string(REPLACE "/" "_" suffix ${folder})
  set(name test_${suffix})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp
       ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.h)
  add_executable(${name} ${sources} ${ARG_WITH})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE velmora_flags test_paths ${ARG_LINK} GTest::gmock)
  if(ARG_LINK MATCHES "Qt6::Test")
    velmora_precompiled(${name} widget_tests)
  else()
    velmora_precompiled(${name} tests)
  endif()
  if(ARG_MOC)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
  endif()
  add_test(NAME ${folder} COMMAND ${name})
  set_tests_properties(${folder} PROPERTIES ENVIRONMENT "${VELMORA_TEST_ENVIRONMENT}")
endfunction()
