# QUILON_LINT: clang-tidy on every file of the project as it is compiled.
option(QUILON_LINT "Run clang-tidy on every compiled file" OFF)
if(QUILON_LINT)
  # The rules' hash stands in the command, so that changed rules lint every file again.
  set(rules ${CMAKE_SOURCE_DIR}/.clang-tidy ${CMAKE_SOURCE_DIR}/tests/.clang-tidy)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${rules})
  foreach(file ${rules})
    file(MD5 ${file} hash)
    string(APPEND hashes ${hash})
  endforeach()
  set(CMAKE_C_CLANG_TIDY clang-tidy --quiet --extra-arg=-DQUILON_LINT_RULES=${hashes})
  set(CMAKE_CXX_CLANG_TIDY ${CMAKE_C_CLANG_TIDY})
endif()
