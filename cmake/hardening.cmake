# What ships is hardened, carries the compiler's runtime in itself, and leaves its debug information in a file beside.
# Only release builds: sanitizers and debuggers want the code as it was written.
#
# What the toolchain cannot do stands in README, and tests/checks/shipped_test.py reads the finished files.

# quilon_harden(TARGET): for a library or program whose code ships, alone or as a part.
function(quilon_harden target)
  if(NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    return()
  endif()
  # Each function and object lies in a section of its own, so that the linker can leave out what nobody uses.
  target_compile_options(${target} PRIVATE -ffunction-sections -fdata-sections)
  target_compile_options(${target} PRIVATE -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
  if(WIN32)
    target_link_options(${target} PUBLIC -fstack-protector-strong)
  else()
    target_compile_options(${target} PRIVATE -fstack-clash-protection -fcf-protection=full)
  endif()
  # Debuggers find the sources from the project's folder, wherever that is.
  target_compile_options(${target} PRIVATE -g -fdebug-prefix-map=${PROJECT_SOURCE_DIR}=.)
endfunction()

# quilon_ship(TARGET): for a library or program that is handed out.
function(quilon_ship target)
  if(NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    return()
  endif()
  quilon_harden(${target})
  target_link_options(${target} PRIVATE -Wl,--gc-sections)
  if(WIN32)
    target_link_options(${target} PRIVATE -Wl,--nxcompat,--dynamicbase,--high-entropy-va)
  else()
    target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now,-z,noexecstack,-z,defs,--as-needed)
    target_link_options(${target} PRIVATE -static-libgcc -static-libstdc++)
    target_link_options(${target} PRIVATE $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie>)
  endif()
  set(file $<TARGET_FILE:${target}>)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_OBJCOPY} --only-keep-debug ${file} ${file}.debug
    COMMAND ${CMAKE_OBJCOPY} --strip-all --add-gnu-debuglink=${file}.debug ${file})
endfunction()
