# One set of compiler settings for everything of ours; toolkit headers come in as system headers.
add_library(orcussch_settings INTERFACE)
target_compile_options(orcussch_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wconversion -Wno-sign-conversion
  -Wimplicit-fallthrough -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 reports these on inlined std::string and std::variant code that is sound.
  target_compile_options(orcussch_settings INTERFACE -Wno-restrict -Wno-maybe-uninitialized -Wno-dangling-pointer -Wno-stringop-overflow -Wno-array-bounds)
endif()
if(ORCUSSCH_SANITIZE)
  target_compile_options(orcussch_settings INTERFACE -fsanitize=${ORCUSSCH_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  target_link_options(orcussch_settings INTERFACE -fsanitize=${ORCUSSCH_SANITIZE})
endif()
