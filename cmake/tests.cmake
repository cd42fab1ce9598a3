# quilon_test(NAME SOURCES file... [LIBRARIES target...] [TIMEOUT seconds] [LAUNCHER command...])
#
# Makes a GoogleTest program and registers it as one test: starting Wine costs more than most cases take, so a program
# runs all of its cases at once. It runs in the build folder and leaves its cases' results in reports/NAME.xml. With
# LAUNCHER it is that command which runs the program.
function(quilon_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT" "SOURCES;LIBRARIES;LAUNCHER")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "quilon_test(${name}): what is ${arg_UNPARSED_ARGUMENTS}?")
  endif()
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
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
  add_test(NAME ${name} COMMAND ${command} WORKING_DIRECTORY ${CMAKE_BINARY_DIR})
  set_tests_properties(
    ${name} PROPERTIES TIMEOUT ${arg_TIMEOUT} ENVIRONMENT GTEST_OUTPUT=xml:reports/${name}.xml)
endfunction()
