# The same build with clang: mingw-w64's headers, and the C++ library and runtime of its GCC.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
# Clang 14 does not find GCC's folder under the name that Debian gives it.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name OUTPUT_VARIABLE gcc_folder)
get_filename_component(gcc_folder ${gcc_folder} DIRECTORY)
foreach(language C CXX)
  set(CMAKE_${language}_COMPILER_TARGET ${MINGW_PREFIX})
  # -pthread: GCC's runtime needs the library of threads.
  set(CMAKE_${language}_FLAGS_INIT "-B${gcc_folder} -pthread")
endforeach()
string(APPEND CMAKE_CXX_FLAGS_INIT " -nostdinc++ -isystem ${gcc_folder}/include/c++"
       " -isystem ${gcc_folder}/include/c++/${MINGW_PREFIX}")
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-L${gcc_folder}")
endforeach()
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
# LLVM's tools print and read other formats.
foreach(tool AR DLLTOOL NM OBJCOPY OBJDUMP RANLIB STRIP)
  string(TOLOWER ${tool} name)
  set(CMAKE_${tool} /usr/bin/${MINGW_PREFIX}-${name})
endforeach()
