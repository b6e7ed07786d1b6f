# A host that is compiled without run-time type information is refused in words.
#   cmake -D COMPILER=... -D INCLUDE=... -P no_rtti.cmake
foreach(option "" -fno-rtti)
  execute_process(
    COMMAND ${COMPILER} -std=c++20 ${option} -fsyntax-only -I ${INCLUDE} -x c++
            ${INCLUDE}/ace/host/device.h
    ERROR_VARIABLE words RESULT_VARIABLE result)
  if(option STREQUAL "" AND NOT result EQUAL 0)
    message(FATAL_ERROR "does not compile at all:\n${words}")
  elseif(option AND (result EQUAL 0 OR NOT words MATCHES "run-time type information"))
    message(FATAL_ERROR "not refused:\n${words}")
  endif()
endforeach()
