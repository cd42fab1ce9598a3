# embed_files(TARGET NAME=FILE...)
#
# Makes files part of a program. Of each the bytes are NAME and their number, 64 bits wide, NAME_size; both are C symbols.
enable_language(ASM)
function(embed_files target)
  if(WIN32)
    set(source ".section .rdata,\"dr\"\n")
  else()
    set(source ".section .note.GNU-stack,\"\",@progbits\n.section .rodata\n")
  endif()
  foreach(pair ${ARGN})
    string(REGEX MATCH "^([^=]+)=(.+)$" _ ${pair})
    set(name ${CMAKE_MATCH_1})
    get_filename_component(file ${CMAKE_MATCH_2} ABSOLUTE)
    list(APPEND files ${file})
    string(APPEND source
      ".balign 16\n.global ${name}\n${name}:\n.incbin \"${file}\"\n.L${name}_end:\n"
      ".balign 8\n.global ${name}_size\n${name}_size: .quad .L${name}_end - ${name}\n")
  endforeach()
  set(assembler_file ${CMAKE_CURRENT_BINARY_DIR}/${target}_files.S)
  file(CONFIGURE OUTPUT ${assembler_file} CONTENT "${source}" @ONLY)
  set_source_files_properties(${assembler_file} PROPERTIES OBJECT_DEPENDS "${files}")
  target_sources(${target} PRIVATE ${assembler_file})
endfunction()
