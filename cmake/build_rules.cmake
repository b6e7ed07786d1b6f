# What every target of the project is built with.

set(CMAKE_CXX_SCAN_FOR_MODULES OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Build type" FORCE)
endif()

add_library(ace_build_rules INTERFACE)
target_compile_options(ace_build_rules INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
  -Woverloaded-virtual -Wcast-align -Wunused -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough
  # Optimised, g++ 12 finds null pointers in the library's own strings that can't be there.
  $<$<CONFIG:Debug>:-Wnull-dereference>)
# A host's services are behind interfaces: guessing their defaults only costs.
target_compile_options(ace_build_rules INTERFACE
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-fno-devirtualize-speculatively>)
if(ACE_WARNINGS_AS_ERRORS)
  target_compile_options(ace_build_rules INTERFACE -Werror)
endif()
if(ACE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# ace_target(NAME): the language and the warnings of the project for one target.
function(ace_target name)
  target_compile_features(${name} PUBLIC cxx_std_20)
  set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF VERIFY_INTERFACE_HEADER_SETS ON)
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:ace_build_rules>)
endfunction()

# ace_sources(TARGET BASE folder HEADERS ... SOURCES ...): adds files of the current folder. BASE is
# the folder from which the headers are included.
function(ace_sources target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "BASE" "HEADERS;SOURCES")
  list(TRANSFORM arg_HEADERS PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  list(TRANSFORM arg_SOURCES PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  target_sources(${target}
    PUBLIC FILE_SET HEADERS BASE_DIRS ${arg_BASE} FILES ${arg_HEADERS}
    PRIVATE ${arg_SOURCES})
endfunction()
