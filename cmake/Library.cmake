# One static library per folder. Every library is compiled with the same strict warnings and sees the
# repository root as its include root, so that an include names the room it comes from.
add_library(nookwise_warnings INTERFACE)
target_compile_options(nookwise_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wformat=2 -Wnull-dereference
  -Wimplicit-fallthrough -Werror
  # GCC 12 takes the growth of a std::string for an overlapping copy at -O2 and above (fixed in GCC 13).
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  # The code that sanitizers add makes GCC see null pointers and unset values where there are none: their
  # presets keep these two as warnings.
  # Fields that an initializer does not name keep their default values; that is what the defaults are for.
  -Wno-missing-field-initializers)

function(nookwise_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE} nookwise_warnings)
endfunction()
