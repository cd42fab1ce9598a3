# QUILON_LINT: clang-tidy on every file of the project as it is compiled.
option(QUILON_LINT "Run clang-tidy on every compiled file" OFF)
if(QUILON_LINT)
  # The rules' hash stands in the command, so that changed rules lint every file again.
  set(rules ${CMAKE_SOURCE_DIR}/.clang-tidy)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${rules})
  file(MD5 ${rules} rules_hash)
  set(CMAKE_C_CLANG_TIDY clang-tidy --quiet --extra-arg=-DQUILON_LINT_RULES=${rules_hash})
  set(CMAKE_CXX_CLANG_TIDY ${CMAKE_C_CLANG_TIDY})
endif()
