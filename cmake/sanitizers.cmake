# QUILON_SANITIZE: a list for -fsanitize= that everything in the build folder is compiled and linked with.
set(QUILON_SANITIZE "" CACHE STRING "Sanitizers, for example address,undefined")
if(QUILON_SANITIZE)
  add_compile_options(-fsanitize=${QUILON_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${QUILON_SANITIZE})
endif()
