# Checks that the compiler's C++ runtime has the layouts that platform/exception_memory_mingw.cpp
# assumes. No header declares them, so they are read from the object files of the runtime.
separate_arguments(exception_flags UNIX_COMMAND "${CMAKE_CXX_FLAGS}")
if(CMAKE_CXX_COMPILER_TARGET)
  list(PREPEND exception_flags --target=${CMAKE_CXX_COMPILER_TARGET})
endif()
execute_process(COMMAND ${CMAKE_CXX_COMPILER} ${exception_flags} -print-file-name=libstdc++.a
                OUTPUT_VARIABLE exception_runtime OUTPUT_STRIP_TRAILING_WHITESPACE)

# runtime_holds(MEMBER PATTERN WHAT OPTION…): fails unless objdump's output for one object file of the
# runtime matches the pattern.
function(runtime_holds member pattern what)
  set(object ${CMAKE_BINARY_DIR}/CMakeFiles/${member})
  execute_process(COMMAND ${CMAKE_AR} p ${exception_runtime} ${member} OUTPUT_FILE ${object})
  execute_process(COMMAND ${CMAKE_OBJDUMP} ${ARGN} ${object} OUTPUT_VARIABLE shown ERROR_QUIET)
  if(NOT shown MATCHES "${pattern}")
    message(FATAL_ERROR
      "${exception_runtime} does not show ${what}. platform/exception_memory_mingw.cpp needs it, and "
      "GCC 12 to 14 have it: compare that file with this version of the runtime")
  endif()
endfunction()

# The function begins by adding the size of the header, 160 bytes, to the requested size.
runtime_holds(eh_alloc.o "<__cxa_allocate_exception>:[^<]*lea +0xa0\\(%rcx\\)"
              "a header of 160 bytes before each exception" -d --disassemble=__cxa_allocate_exception)
# The control block of the thread-local variable, a pointer and a number, begins with its size and its
# alignment.
runtime_holds(eh_globals.o "get_global[^\n]*\n 0000 10000000 00000000 08000000 00000000"
              "an exception record of 16 bytes for each thread" -s)
