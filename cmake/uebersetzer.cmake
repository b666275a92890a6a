# Compiler settings that hold for every target: warnings, sanitizers, cache and linker.
find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()
find_program(MOLD mold)
if(MOLD)
  add_link_options(-fuse-ld=mold)
endif()

add_compile_options(-Wall -Wextra -Wconversion -Wshadow)
# Builds of one commit shall be equal wherever they are made.
add_compile_options(-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)
if(LIEDWERK_SANITIZER)
  add_compile_options(-fsanitize=${LIEDWERK_SANITIZER} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${LIEDWERK_SANITIZER})
endif()
