# The target lint runs clang-tidy on every file that it has not found good before; sources that are made while building
# become its dependencies. It reads the commands of clang, so only the preset that has clang offers it.
option(QUILON_LINT "Offer the target lint" OFF)
if(QUILON_LINT)
  add_custom_target(
    lint
    COMMAND /usr/bin/python3 ${PROJECT_SOURCE_DIR}/tools/tidy.py ${PROJECT_SOURCE_DIR} ${CMAKE_BINARY_DIR}
    USES_TERMINAL)
endif()
