# Warnings, sanitizers and the compiler cache: what every target of the project shares.
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

add_library(corvanta_settings INTERFACE)
target_include_directories(corvanta_settings INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_compile_options(corvanta_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Werror)
if(CORVANTA_SANITIZE)
  target_compile_options(corvanta_settings INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(corvanta_settings INTERFACE -fsanitize=address,undefined)
endif()

# corvanta_room(NAME LINKS...): the static library of one folder of src/. It links only the rooms
# it may use, which is what keeps the arrows between the folders real.
function(corvanta_room name)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  add_library(corvanta_${name} STATIC ${sources})
  target_link_libraries(corvanta_${name} PUBLIC corvanta_settings ${ARGN})
endfunction()

# corvanta_test(NAME LINKS...): the test program of one folder of tests/.
function(corvanta_test name)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  add_executable(test_${name} ${sources})
  target_link_libraries(test_${name} PRIVATE corvanta_test_support ${ARGN})
  gtest_discover_tests(test_${name} DISCOVERY_MODE PRE_TEST NO_PRETTY_VALUES TEST_PREFIX "${name}." PROPERTIES TIMEOUT 300)
endfunction()
