# Checks that the compiler's C++ runtime has the layouts that platform/exception_memory_mingw.cpp
# assumes. They are read from the runtime itself, because its headers do not contain them. GCC 12 and 14
# have them.
separate_arguments(exception_flags UNIX_COMMAND "${CMAKE_CXX_FLAGS}")
if(CMAKE_CXX_COMPILER_TARGET)
  list(PREPEND exception_flags --target=${CMAKE_CXX_COMPILER_TARGET})
endif()
execute_process(COMMAND ${CMAKE_CXX_COMPILER} ${exception_flags} -print-file-name=libstdc++.a
                OUTPUT_VARIABLE exception_runtime OUTPUT_STRIP_TRAILING_WHITESPACE)

# runtime_holds(MEMBER PATTERN WHAT OPTION…): what objdump shows of one object of the runtime.
function(runtime_holds member pattern what)
  set(object ${CMAKE_BINARY_DIR}/CMakeFiles/${member})
  execute_process(COMMAND ${CMAKE_AR} p ${exception_runtime} ${member} OUTPUT_FILE ${object})
  execute_process(COMMAND ${CMAKE_OBJDUMP} ${ARGN} ${object} OUTPUT_VARIABLE shown ERROR_QUIET)
  if(NOT shown MATCHES "${pattern}")
    message(FATAL_ERROR
      "${exception_runtime} does not show ${what}, as platform/exception_memory_mingw.cpp needs it and "
      "GCC 12 to 14 have it: compare that file with this version of the runtime")
  endif()
endfunction()

# The first instructions add the header's 160 bytes to the requested size.
runtime_holds(eh_alloc.o "<__cxa_allocate_exception>:[^<]*lea +0xa0\\(%rcx\\)"
              "a header of 160 bytes in front of exceptions" -d --disassemble=__cxa_allocate_exception)
# The variable of each thread begins with its size and its alignment: a pointer and a number.
runtime_holds(eh_globals.o "get_global[^\n]*\n 0000 10000000 00000000 08000000 00000000"
              "16 bytes of exceptions for each thread" -s)
