# quilon_test(NAME SOURCES file... [LIBRARIES target...] [TIMEOUT seconds] [LAUNCHER command...]
#             [SHARDS count])
#
# Makes a GoogleTest program and registers it as one test: starting Wine costs more than most cases take, so a program
# runs all of its cases at once. It runs in the build folder and leaves its cases' results in reports/NAME.xml. With
# LAUNCHER it is that command which runs the program. With SHARDS the cases are dealt out to so many tests NAME_1, NAME_2 ...:
# for a program that waits more than it works.
function(quilon_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT;SHARDS" "SOURCES;LIBRARIES;LAUNCHER")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "quilon_test(${name}): what is ${arg_UNPARSED_ARGUMENTS}?")
  endif()
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()

  add_executable(${name} ${arg_SOURCES})
  quilon_warnings(${name})
  # Optimised is what is tested. A test itself compiles in half the time without.
  target_compile_options(${name} PRIVATE -O0)
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} GTest::gmock_main)
  if(arg_LAUNCHER)
    set(command ${arg_LAUNCHER} $<TARGET_FILE:${name}>)
  else()
    set(command ${name})
  endif()
  if(NOT arg_SHARDS)
    quilon_register_test(${name})
    return()
  endif()
  foreach(shard RANGE 1 ${arg_SHARDS})
    math(EXPR index "${shard} - 1")
    quilon_register_test(${name}_${shard} GTEST_TOTAL_SHARDS=${arg_SHARDS} GTEST_SHARD_INDEX=${index})
  endforeach()
endfunction()

# Registers a run of quilon_test's program with further variables in its environment.
macro(quilon_register_test test)
  add_test(NAME ${test} COMMAND ${command} WORKING_DIRECTORY ${CMAKE_BINARY_DIR})
  set_tests_properties(
    ${test} PROPERTIES TIMEOUT ${arg_TIMEOUT} ENVIRONMENT "GTEST_OUTPUT=xml:reports/${test}.xml;${ARGN}")
endmacro()
