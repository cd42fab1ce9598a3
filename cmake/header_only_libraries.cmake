# Debian's header-only libraries, offered through a folder of links: the Windows build must see them without seeing
# the rest of /usr/include, which belongs to Linux.
set(links ${CMAKE_BINARY_DIR}/header_only)
file(MAKE_DIRECTORY ${links})
foreach(name boost CLI nlohmann stb)
  file(CREATE_LINK /usr/include/${name} ${links}/${name} SYMBOLIC)
endforeach()

add_library(header_only_libraries INTERFACE)
target_include_directories(header_only_libraries SYSTEM INTERFACE ${links})
find_package(Threads REQUIRED)
target_link_libraries(header_only_libraries INTERFACE Threads::Threads)
# This Asio forgets a header that its coroutines need; nothing here uses them.
target_compile_definitions(header_only_libraries INTERFACE BOOST_ASIO_DISABLE_CO_AWAIT)
if(QUILON_SANITIZE MATCHES "thread")
  # ThreadSanitizer does not know memory fences; Asio's own locks suffice.
  target_compile_definitions(header_only_libraries INTERFACE BOOST_ASIO_DISABLE_FENCED_BLOCK)
endif()
if(WIN32)
  # Asio asks for a Windows version and for the socket libraries by name.
  target_compile_definitions(header_only_libraries INTERFACE _WIN32_WINNT=0x0A00)
  target_link_libraries(header_only_libraries INTERFACE ws2_32 mswsock)
endif()
