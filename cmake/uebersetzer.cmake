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
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # gcc 12 sees overlaps in std::string's operator+ that are not there (gcc bug 105651).
  add_compile_options(-Wno-restrict)
endif()
# Builds of one commit shall be equal wherever they are made.
add_compile_options(-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)
if(LIEDWERK_SANITIZER)
  add_compile_options(-fsanitize=${LIEDWERK_SANITIZER} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # The added checks hide from gcc what has been set before; it then warns of its own library.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wno-maybe-uninitialized)
  endif()
  add_link_options(-fsanitize=${LIEDWERK_SANITIZER})
endif()
