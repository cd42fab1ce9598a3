# The database of the desk's journal: on Linux the system's, for Windows built in from its single source file, which
# scripts/setup takes from npm.
add_library(sqlite INTERFACE)
if(WIN32)
  enable_language(C)
  set(amalgamation ${PROJECT_SOURCE_DIR}/desk/sqlite/node_modules/better-sqlite3/deps/sqlite3)
  add_library(sqlite_amalgamation STATIC ${amalgamation}/sqlite3.c)
  target_include_directories(sqlite_amalgamation SYSTEM PUBLIC ${amalgamation})
  target_compile_definitions(sqlite_amalgamation PRIVATE SQLITE_OMIT_LOAD_EXTENSION SQLITE_DQS=0)
  # Not ours to judge.
  target_compile_options(sqlite_amalgamation PRIVATE -w)
  quilon_harden(sqlite_amalgamation)
  target_link_libraries(sqlite INTERFACE sqlite_amalgamation)
else()
  target_link_libraries(sqlite INTERFACE sqlite3)
endif()
