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

# qdw8_library(name folder SOURCES ... LINKS ...): the library of one folder.
function(qdw8_library target folder)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${target} STATIC ${ARG_SOURCES})
  qdw8_room(${target} "${folder}")
  target_link_libraries(${target} PUBLIC ${ARG_LINKS})
endfunction()

# qdw8_program(name SOURCES ... LINKS ...)
function(qdw8_program target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${target} ${ARG_SOURCES})
  target_link_libraries(${target} PRIVATE qdw8_rules ${ARG_LINKS})
endfunction()

# qdw8_test(name SOURCES ... LINKS ...): one test program; its cases are known to ctest one by one.
function(qdw8_test target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${target} ${ARG_SOURCES})
  set_target_properties(${target} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
  target_link_libraries(${target} PRIVATE qdw8_rules ${ARG_LINKS} GTest::gtest)
  gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST
    PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
