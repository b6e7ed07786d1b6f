# What every target of the project is built with.

set(CMAKE_CXX_SCAN_FOR_MODULES OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Build type" FORCE)
endif()

add_library(ace_build_rules INTERFACE)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(ace_build_rules INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-align -Wunused -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough
    # Optimised, g++ 12 finds null pointers in the library's own strings that can't be there.
    $<$<CONFIG:Debug>:-Wnull-dereference>)
  set(ACE_ERROR_FLAG -Werror)
elseif(MSVC)
  target_compile_options(ace_build_rules INTERFACE /W4 /permissive- /utf-8)
  set(ACE_ERROR_FLAG /WX)
endif()
# A host's services are behind interfaces: guessing their defaults only costs.
target_compile_options(ace_build_rules INTERFACE
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-fno-devirtualize-speculatively>)
if(ACE_WARNINGS_AS_ERRORS)
  target_compile_options(ace_build_rules INTERFACE ${ACE_ERROR_FLAG})
endif()
if(ACE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(ACE_COVERAGE)
  # Everywhere, because a routine of a header runs in the copy that the linker finds first.
  add_compile_options(--coverage -fprofile-filter-files=src/ace/)
  add_link_options(--coverage)
endif()

if(PROJECT_IS_TOP_LEVEL)
  # g++ tidies up its memory all the time, which is a tenth of a compilation without optimisation.
  add_compile_options($<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Debug>>:--param=ggc-min-heapsize=500000>)
endif()

# ace_target(NAME): the language and the warnings of the project for one target.
function(ace_target name)
  target_compile_features(${name} PUBLIC cxx_std_20)
  set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF VERIFY_INTERFACE_HEADER_SETS ON)
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:ace_build_rules>)
endfunction()

# ace_headers_first(OUT HEADERS ... SOURCES ...): the headers that a source of their name includes first.
function(ace_headers_first out)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;SOURCES")
  set(first "")
  foreach(header IN LISTS arg_HEADERS)
    string(REGEX REPLACE "h$" "cpp" source ${header})
    if(source IN_LIST arg_SOURCES)
      file(STRINGS ${source} include LIMIT_COUNT 1 REGEX "^#include")
      if(include MATCHES "/${header}[\">]")
        list(APPEND first ${header})
      endif()
    endif()
  endforeach()
  set(${out} ${first} PARENT_SCOPE)
endfunction()

# The headers that are no interface: not installed, and compiled alone like the others.
add_library(ace_own_headers INTERFACE)
target_compile_features(ace_own_headers INTERFACE cxx_std_20)
set_target_properties(ace_own_headers PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)

# ace_precompile(TARGET): compiles once what most sources of engine and hosts include, and uses it for
# all sources of the target. A header that a source forgot is then seen only without ACE_PRECOMPILE.
# Shared libraries are compiled in another way than the static ones beside them.
function(ace_precompile target)
  if(NOT ACE_PRECOMPILE OR BUILD_SHARED_LIBS)
    return()
  elseif(NOT target STREQUAL ace)
    target_precompile_headers(${target} REUSE_FROM ace)
  else()
    target_precompile_headers(ace PRIVATE
      <algorithm> <array> <charconv> <cmath> <deque> <functional> <limits> <map> <memory> <optional>
      <set> <span> <string> <string_view> <utility> <variant> <vector>
      <ace/core/actions_engine.h> <ace/core/operation.h> <ace/host.h>)
  endif()
endfunction()

# ace_sources(TARGET BASE folder HEADERS ... OWN ... SOURCES ...): adds files of the current folder. BASE
# is the folder from which the headers are included; those of OWN are no part of the package. A header
# that its source includes first is compiled alone by that; the others by the target
# all_verify_interface_header_sets.
function(ace_sources target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "BASE" "HEADERS;OWN;SOURCES")
  ace_headers_first(first HEADERS ${arg_HEADERS} SOURCES ${arg_SOURCES})
  ace_headers_first(own_first HEADERS ${arg_OWN} SOURCES ${arg_SOURCES})
  if(arg_OWN)
    list(REMOVE_ITEM arg_OWN ${own_first})
    list(TRANSFORM arg_OWN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
    target_sources(ace_own_headers INTERFACE FILE_SET HEADERS BASE_DIRS ${arg_BASE} FILES ${arg_OWN})
  endif()
  set(others ${arg_HEADERS})
  list(REMOVE_ITEM others ${first})
  list(TRANSFORM first PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  list(TRANSFORM others PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  list(TRANSFORM arg_SOURCES PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  target_sources(${target}
    PUBLIC
      FILE_SET HEADERS BASE_DIRS ${arg_BASE} FILES ${others}
      FILE_SET first TYPE HEADERS BASE_DIRS ${arg_BASE} FILES ${first}
    PRIVATE ${arg_SOURCES})
  set_target_properties(${target} PROPERTIES INTERFACE_HEADER_SETS_TO_VERIFY HEADERS)
endfunction()
