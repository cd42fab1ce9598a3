# GoogleTest is built from Debian's sources, so that the same tests also compile for Windows. It is not ours to lint.
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
block()
  set(CMAKE_C_CLANG_TIDY "")
  set(CMAKE_CXX_CLANG_TIDY "")
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
endblock()
