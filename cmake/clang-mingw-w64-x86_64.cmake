# Cross-compiles for 64-bit Windows with Clang: a second opinion on the sources. Headers, libraries and linker are those of
# the GCC that builds the program.
include("${CMAKE_CURRENT_LIST_DIR}/mingw-w64-x86_64.cmake")
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name
    OUTPUT_VARIABLE _gcc OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
get_filename_component(_gcc "${_gcc}" DIRECTORY)

set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_AR x86_64-w64-mingw32-ar CACHE FILEPATH "")
set(CMAKE_RANLIB x86_64-w64-mingw32-ranlib CACHE FILEPATH "")
set(CMAKE_OBJDUMP x86_64-w64-mingw32-objdump CACHE FILEPATH "")
set(CMAKE_DLLTOOL x86_64-w64-mingw32-dlltool CACHE FILEPATH "")

# Clang does not find the headers of this GCC, whose folder has the thread model in its name; and it must not find those of
# the machine it runs on.
set(_headers "-isystem /usr/x86_64-w64-mingw32/include")
set(CMAKE_C_FLAGS_INIT "-nostdlibinc ${_headers}")
set(CMAKE_CXX_FLAGS_INIT "-nostdlibinc -nostdinc++ -isystem ${_gcc}/include/c++ \
-isystem ${_gcc}/include/c++/x86_64-w64-mingw32 -isystem ${_gcc}/include/c++/backward ${_headers}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -pthread -B${_gcc} -L${_gcc}")
