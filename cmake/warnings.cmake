# quilon_warnings(TARGET): the warnings that every target of the project is built with; each is an error.
function(quilon_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wcast-qual -Wundef -Werror)
  target_compile_options(
    ${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast>)
endfunction()
