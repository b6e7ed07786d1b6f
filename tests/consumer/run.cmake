# Installs the engine into an empty folder, builds the consumer against it there, runs it and holds
# its output against the expected one.
#   cmake -D BUILD=... -D SOURCE=... -D WORK=... -D GENERATOR=... -D COMPILER=... -D FLAGS=... -P run.cmake

function(step)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK})
step(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/installed --component ace)
step(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/build -G ${GENERATOR} -D CMAKE_PREFIX_PATH=${WORK}/installed
     -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_FLAGS=${FLAGS})
step(${CMAKE_COMMAND} --build ${WORK}/build)

# expect(FILE command...): the output of the command is the text of the file.
function(expect file)
  step(${ARGN})
  file(READ ${SOURCE}/${file} expected)
  if(NOT output STREQUAL expected)
    message(FATAL_ERROR "expected:\n${expected}\ngot:\n${output}")
  endif()
endfunction()
expect(expected.txt ${WORK}/build/minimal_host ${SOURCE}/door.ini 1)
expect(foreign_host.txt ${WORK}/build/foreign_host)
foreach(none one 1x -1 99999999999 "")
  execute_process(COMMAND ${WORK}/build/minimal_host ${SOURCE}/door.ini "${none}"
                  ERROR_VARIABLE words RESULT_VARIABLE result)
  if(NOT result EQUAL 2 OR NOT words MATCHES "usage")
    message(FATAL_ERROR "'${none}', a number that is none: ${result} ${words}")
  endif()
endforeach()
