# Warnings, sanitizers and the compiler cache: what every target of the project shares.
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

add_library(corvanta_settings INTERFACE)
target_include_directories(corvanta_settings INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_compile_options(corvanta_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor)
# What g++ 12 to 14 say of joined strings and of variants when they optimise is known to be wrong.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 15)
  target_compile_options(corvanta_settings INTERFACE
    "$<$<CONFIG:RelWithDebInfo>:-Wno-restrict;-Wno-array-bounds;-Wno-maybe-uninitialized>"
    "$<$<CONFIG:RelWithDebInfo>:-Wno-stringop-overflow;-Wno-stringop-overread>")
endif()
# A compiler yet unknown may warn where today's do not: that must not keep a person from building.
if(CORVANTA_WERROR)
  target_compile_options(corvanta_settings INTERFACE -Werror)
endif()
if(CORVANTA_SANITIZE)
  # Where a pointer is null the program ends with a stack all the same; checks of every access for
  # that and for alignment would be half of what is compiled.
  target_compile_options(corvanta_settings INTERFACE
    -fsanitize=address,undefined -fno-sanitize=null,alignment -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  target_link_options(corvanta_settings INTERFACE -fsanitize=address,undefined)
endif()

# It links in a fraction of the time. Types are compared by the linker that the compiler was made for.
find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM AND NOT CMAKE_EXE_LINKER_FLAGS MATCHES "-flto" AND
    (NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU" OR CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12.1))
  target_link_options(corvanta_settings INTERFACE -fuse-ld=mold)
endif()

# What nearly every file of the engine includes. Each file names its own includes all the same.
set(CORVANTA_COMMON_HEADERS
  <algorithm> <array> <cmath> <cstdint> <functional> <map> <memory> <optional> <string>
  <string_view> <utility> <vector>)

# corvanta_headers(KIND HEADERS... [LINKS libraries...]): headers that are compiled once, for every
# target that says corvanta_precompiled(TARGET KIND).
function(corvanta_headers kind)
  cmake_parse_arguments(PARSE_ARGV 1 headers "" "" "LINKS")
  set(empty "${PROJECT_BINARY_DIR}/headers/${kind}.cpp")
  if(NOT EXISTS "${empty}")
    file(WRITE "${empty}" "")
  endif()
  add_library(corvanta_headers_${kind} OBJECT "${empty}")
  target_link_libraries(corvanta_headers_${kind} PRIVATE corvanta_settings ${headers_LINKS})
  target_precompile_headers(corvanta_headers_${kind} PRIVATE ${headers_UNPARSED_ARGUMENTS})
endfunction()

function(corvanta_precompiled target kind)
  target_precompile_headers(${target} REUSE_FROM corvanta_headers_${kind})
endfunction()

corvanta_headers(rules ${CORVANTA_COMMON_HEADERS})
if(CORVANTA_WINDOW)
  corvanta_headers(windows ${CORVANTA_COMMON_HEADERS} <QtWidgets> LINKS Qt6::Widgets)
  target_compile_definitions(corvanta_headers_windows PRIVATE QT_NO_KEYWORDS)
endif()
# Tests are built without optimisation: that halves the time they take to compile.
if(CORVANTA_TESTS)
  corvanta_headers(tests ${CORVANTA_COMMON_HEADERS} <gtest/gtest.h> LINKS GTest::gtest)
  target_compile_options(corvanta_headers_tests PRIVATE -O0)
  if(CORVANTA_WINDOW)
    # Not <QTest>: it holds the folder that each test program is built in.
    corvanta_headers(window_tests ${CORVANTA_COMMON_HEADERS} <gtest/gtest.h> <QtWidgets>
      LINKS GTest::gtest Qt6::Widgets)
    target_compile_definitions(corvanta_headers_window_tests PRIVATE QT_NO_KEYWORDS)
    target_compile_options(corvanta_headers_window_tests PRIVATE -O0)
  endif()
endif()

function(corvanta_library name)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  list(FILTER sources EXCLUDE REGEX "${CMAKE_CURRENT_SOURCE_DIR}/main\\.cpp$")
  add_library(corvanta_${name} STATIC ${sources})
  target_link_libraries(corvanta_${name} PUBLIC corvanta_settings ${ARGN})
endfunction()

# corvanta_room(NAME LINKS...): the static library of one folder of src/. It links only the rooms
# it may use, which is what keeps the arrows between the folders real.
function(corvanta_room name)
  corvanta_library(${name} ${ARGN})
  corvanta_precompiled(corvanta_${name} rules)
endfunction()

# corvanta_windows(TARGET): what a library of windows needs beside its sources.
function(corvanta_windows target)
  # Qt's meta-object compiler stumbles over the standard library's concepts when it is told of them.
  set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOMOC_COMPILER_PREDEFINES OFF)
  corvanta_precompiled(${target} windows)
endfunction()

# corvanta_window_room(NAME LINKS...): a room that is nothing but windows and their parts.
function(corvanta_window_room name)
  corvanta_library(${name} ${ARGN})
  corvanta_windows(corvanta_${name})
endfunction()

# corvanta_parted_room(NAME ENGINE links... FORMS links...): a room whose rules link no Qt and whose
# windows (Frm*, Qt*, uc*) are a library of their own, corvanta_NAME_forms.
function(corvanta_parted_room name)
  cmake_parse_arguments(PARSE_ARGV 1 room "" "" "ENGINE;FORMS")
  corvanta_room(${name} ${room_ENGINE})
  get_target_property(all corvanta_${name} SOURCES)
  set(engine ${all})
  list(FILTER engine EXCLUDE REGEX "/(Frm|Qt|uc)[^/]*\\.cpp$")
  set_target_properties(corvanta_${name} PROPERTIES SOURCES "${engine}")
  if(NOT CORVANTA_WINDOW)
    return()
  endif()
  set(forms ${all})
  list(FILTER forms INCLUDE REGEX "/(Frm|Qt|uc)[^/]*\\.cpp$")
  add_library(corvanta_${name}_forms STATIC ${forms})
  target_link_libraries(corvanta_${name}_forms PUBLIC
    corvanta_${name} corvanta_controls Qt6::Widgets ${room_FORMS})
  corvanta_windows(corvanta_${name}_forms)
endfunction()

# corvanta_test_program(TARGET PREFIX LINKS...): a test program whose tests are called PREFIX.*.
function(corvanta_test_program target prefix)
  target_link_libraries(${target} PRIVATE corvanta_test_support ${ARGN})
  target_compile_options(${target} PRIVATE -O0)
  gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST NO_PRETTY_VALUES TEST_PREFIX "${prefix}."
    PROPERTIES TIMEOUT 300)
endfunction()

function(corvanta_test_of_sources target prefix)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  add_executable(${target} ${sources})
  corvanta_test_program(${target} ${prefix} ${ARGN})
endfunction()

# corvanta_test(NAME LINKS...): the test program of one folder of tests/.
function(corvanta_test name)
  corvanta_test_of_sources(test_${name} ${name} ${ARGN})
  corvanta_precompiled(test_${name} tests)
endfunction()

# corvanta_window_test(NAME LINKS...): the same for a folder that tests windows alone.
function(corvanta_window_test name)
  corvanta_test_of_sources(test_${name} ${name} ${ARGN} Qt6::Widgets Qt6::Test)
  corvanta_precompiled(test_${name} window_tests)
endfunction()

# corvanta_parted_test(ROOM): the two test programs of a parted room; the windows need an
# application of their own.
function(corvanta_parted_test name)
  corvanta_test(${name} corvanta_${name})
  get_target_property(all test_${name} SOURCES)
  set(engine ${all})
  list(FILTER engine EXCLUDE REGEX "/(Frm[^/]*|main)\\.cpp$")
  set_target_properties(test_${name} PROPERTIES SOURCES "${engine}")
  if(NOT CORVANTA_WINDOW)
    return()
  endif()
  set(forms ${all})
  list(FILTER forms INCLUDE REGEX "/(Frm[^/]*|main)\\.cpp$")
  add_executable(test_${name}_forms ${forms})
  corvanta_test_program(test_${name}_forms ${name} corvanta_${name}_forms Qt6::Test)
  corvanta_precompiled(test_${name}_forms window_tests)
endfunction()
