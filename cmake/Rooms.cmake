# One function per kind of target, so that every room is built with the same rules.

add_library(qdw8_rules INTERFACE)
target_compile_features(qdw8_rules INTERFACE cxx_std_20)
target_compile_options(qdw8_rules INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Wcast-align -Wunused -Woverloaded-virtual -Wnull-dereference
  -Wdouble-promotion -Wimplicit-fallthrough -Werror
  # GCC 12 sees overlapping copies in "literal" + std::string&& when it optimises; there are none.
  -Wno-restrict)
if(QDW8_SANITIZE)
  target_compile_options(qdw8_rules INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(qdw8_rules INTERFACE -fsanitize=address,undefined)
endif()

# A header is included as "room/header.h". The include path that a room hands on holds nothing but
# the room itself, so a header of a room that is not linked is not found at all.
function(qdw8_room target folder)
  set(root "${CMAKE_BINARY_DIR}/rooms/${target}")
  cmake_path(GET folder PARENT_PATH parent)
  file(MAKE_DIRECTORY "${root}/${parent}")
  if(NOT EXISTS "${root}/${folder}")
    file(CREATE_LINK "${CMAKE_SOURCE_DIR}/${folder}" "${root}/${folder}" SYMBOLIC)
  endif()
  target_include_directories(${target} PUBLIC "${root}")
  target_link_libraries(${target} PRIVATE qdw8_rules)
endfunction()

# Precompiled headers of Qt and GoogleTest for what is compiled alike: the rooms with windows, their
# tests, all other tests. Test sources are not optimised, and go without the undefined-behaviour
# checks, which double the time that they take to build; it is the rooms that work there.
# A build without them (CMAKE_DISABLE_PRECOMPILE_HEADERS) shows whether an include is missing.
function(qdw8_precompiled target)
  cmake_parse_arguments(ARG "" "" "HEADERS;LINKS" ${ARGN})
  file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/precompiled/${target}.cpp"
    CONTENT "// Carries precompiled headers.\n")
  add_library(${target} OBJECT "${CMAKE_BINARY_DIR}/precompiled/${target}.cpp")
  target_link_libraries(${target} PRIVATE qdw8_rules ${ARG_LINKS})
  target_precompile_headers(${target} PRIVATE ${ARG_HEADERS})
endfunction()

set(qdw8_qt_headers <QApplication> <QtWidgets>)
add_library(qdw8_test_rules INTERFACE)
target_link_libraries(qdw8_test_rules INTERFACE GTest::gtest)
target_compile_options(qdw8_test_rules INTERFACE
  -O0 "$<$<BOOL:${QDW8_SANITIZE}>:-fno-sanitize=undefined>")

qdw8_precompiled(qdw8_precompiled_qt HEADERS ${qdw8_qt_headers} LINKS Qt6::Widgets)
if(QDW8_TESTS)
  qdw8_precompiled(qdw8_precompiled_tests HEADERS <gtest/gtest.h> LINKS qdw8_test_rules)
  qdw8_precompiled(qdw8_precompiled_qt_tests HEADERS <gtest/gtest.h> ${qdw8_qt_headers}
    LINKS qdw8_test_rules Qt6::Widgets)
endif()

# qdw8_library(name folder SOURCES ... LINKS ...): the library of one folder.
function(qdw8_library target folder)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${target} STATIC ${ARG_SOURCES})
  qdw8_room(${target} "${folder}")
  target_link_libraries(${target} PUBLIC ${ARG_LINKS})
  if("Qt6::Widgets" IN_LIST ARG_LINKS)
    target_precompile_headers(${target} REUSE_FROM qdw8_precompiled_qt)
  endif()
endfunction()

# qdw8_program(name SOURCES ... LINKS ...)
function(qdw8_program target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${target} ${ARG_SOURCES})
  target_link_libraries(${target} PRIVATE qdw8_rules ${ARG_LINKS})
endfunction()

# qdw8_test_parts(name SOURCES ...): a library for tests, built as they are; its links are its own.
function(qdw8_test_parts target)
  cmake_parse_arguments(ARG "" "" "SOURCES" ${ARGN})
  add_library(${target} STATIC ${ARG_SOURCES})
  target_link_libraries(${target} PRIVATE qdw8_rules qdw8_test_rules PUBLIC GTest::gtest)
  target_precompile_headers(${target} REUSE_FROM qdw8_precompiled_tests)
endfunction()

# qdw8_test(name SOURCES ... LINKS ...): one test program, which ctest runs as one test.
function(qdw8_test target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${target} ${ARG_SOURCES})
  set_target_properties(${target} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
  target_link_libraries(${target} PRIVATE qdw8_rules qdw8_test_rules ${ARG_LINKS})
  if("Qt6::Test" IN_LIST ARG_LINKS)
    target_precompile_headers(${target} REUSE_FROM qdw8_precompiled_qt_tests)
  else()
    target_precompile_headers(${target} REUSE_FROM qdw8_precompiled_tests)
  endif()
  add_test(NAME ${target} COMMAND ${target} --gtest_brief=1)
  set_tests_properties(${target} PROPERTIES
    TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
