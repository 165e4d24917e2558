# One place for the flags of every target of this project. Numbers must be reproducible on every machine:
# no contraction of multiply and add, no fast-math.
add_library(tool_flags INTERFACE)
target_compile_options(tool_flags INTERFACE
  -Wall -Wextra -Wconversion -Wshadow
  $<$<BOOL:${TOOL_WARNINGS_AS_ERRORS}>:-Werror>
  # GCC 12 takes every "literal" + std::string for overlapping memory (its bug 105651).
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  -ffp-contract=off)
if(TOOL_SANITIZE)
  target_compile_options(tool_flags INTERFACE -fsanitize=${TOOL_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  target_link_options(tool_flags INTERFACE -fsanitize=${TOOL_SANITIZE})
endif()
if(TOOL_BUILD_FUZZERS)
  target_compile_options(tool_flags INTERFACE -fsanitize=fuzzer-no-link)  # the library tells where it has been
endif()
