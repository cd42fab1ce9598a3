# quilon_warnings(TARGET): the warnings that every target of the project is built with; each is an error.
function(quilon_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wcast-qual -Wundef -Werror)
  target_compile_options(
    ${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast>)
  target_compile_options(${target} PRIVATE $<$<C_COMPILER_ID:Clang>:-Wreserved-identifier>)
  # A record of which only some fields are named is zero in the others, and meant so.
  target_compile_options(${target} PRIVATE -Wno-missing-field-initializers)
endfunction()
