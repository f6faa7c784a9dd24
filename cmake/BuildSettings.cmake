# Warnings, sanitizers and the header-only libraries, the same for every target. Warnings are errors
# with -DCMAKE_COMPILE_WARNING_AS_ERROR=ON, which ./test.sh sets: another compiler may see more of them.

add_library(build_settings INTERFACE)
target_include_directories(build_settings INTERFACE ${CMAKE_SOURCE_DIR})
if(MSVC)
  target_compile_options(build_settings INTERFACE /W4 /EHsc /utf-8)
else()
  target_compile_options(build_settings INTERFACE -Wall -Wextra -Wpedantic -Wshadow)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # GCC 12 reports overlaps in std::string's operator+ where there are none.
    target_compile_options(build_settings INTERFACE -Wno-restrict)
  endif()
endif()

# Use a compiler cache if one is installed; -DCMAKE_CXX_COMPILER_LAUNCHER= switches it off.
if(NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
  find_program(CCACHE ccache)
  if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
  endif()
endif()
if(CMAKE_CXX_COMPILER_LAUNCHER MATCHES "ccache$")
  # ccache needs this to keep results that used a precompiled header.
  list(PREPEND CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
       CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  add_compile_options(-fpch-preprocess)
endif()
option(WIFI_FUZZ "Build the fuzzers; needs clang" OFF)
if(WIFI_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

option(WIFI_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
if(WIFI_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# What is not part of the module is compiled more cheaply: without the two checks of each pointer that
# take a third of the compiler's time (AddressSanitizer sees a null pointer's use too), and for Windows
# with fewer optimisations.
set(tool_options $<$<BOOL:${WIFI_SANITIZE}>:-fno-sanitize=null,alignment>)
if(MINGW)
  list(APPEND tool_options -O1)
endif()

option(WIFI_THREADS "Build with ThreadSanitizer" OFF)
if(WIFI_THREADS)
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()

# product_code(TARGET…): these targets are the module's own code. On Windows an overrun of a buffer on the
# stack ends their process (platform/stack_protector_mingw.cpp). ./coverage.sh counts which of their lines
# and branches run.
option(WIFI_COVERAGE "Measure the coverage of the product's folders" OFF)
function(product_code)
  foreach(target ${ARGV})
    if(MINGW)
      target_compile_options(${target} PRIVATE -fstack-protector-strong)
    endif()
    if(WIFI_COVERAGE)
      target_compile_options(${target} PRIVATE --coverage -fprofile-abs-path)
    endif()
  endforeach()
endfunction()
if(WIFI_COVERAGE)
  add_link_options(--coverage)
endif()

if(NOT WIN32 AND NOT (WIFI_SANITIZE AND CMAKE_CXX_COMPILER_ID MATCHES Clang))
  # A shared object must name every library that it uses. Clang's sanitizer runtime is only in the
  # program.
  string(APPEND CMAKE_SHARED_LINKER_FLAGS " -Wl,-z,defs")
  string(APPEND CMAKE_MODULE_LINKER_FLAGS " -Wl,-z,defs")
endif()

if(MINGW)
  # Each binary is self-contained, without DLLs of the compiler's runtime. Data execution prevention and
  # high-entropy address space randomisation are on.
  add_link_options(-static -static-libgcc -static-libstdc++ -Wl,--nxcompat -Wl,--dynamicbase
                   -Wl,--high-entropy-va -Wl,--no-insert-timestamp)
  # Line numbers for the debug files, without paths of the machine that built them.
  add_compile_options(-g1 -gno-record-gcc-switches
                      -ffile-prefix-map=${CMAKE_BINARY_DIR}=/wifi-adapter-provider/build
                      -ffile-prefix-map=${CMAKE_SOURCE_DIR}=/wifi-adapter-provider)
endif()

# The header-only libraries are directly in the system's include folder, which a cross build must not
# search, so their folders are linked into the build tree.
set(header_only ${CMAKE_BINARY_DIR}/header_only)
file(MAKE_DIRECTORY ${header_only})
foreach(library CLI nlohmann)
  if(NOT EXISTS /usr/include/${library})
    message(FATAL_ERROR "The ${library} headers are missing: run ./test.sh once, it installs them")
  endif()
  file(CREATE_LINK /usr/include/${library} ${header_only}/${library} SYMBOLIC)
endforeach()
add_library(header_only INTERFACE)
target_include_directories(header_only SYSTEM INTERFACE ${header_only})
