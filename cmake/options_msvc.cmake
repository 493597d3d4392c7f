# Visual Studio's compiler and linker. Not yet tried: nobody has built with them so far.
set(vandrel_section_for_each /Gy /Gw)
set(vandrel_compile_fast /Od /bigobj)
set(vandrel_compile_well /O2)
# The program needs no libraries but those of Windows.
set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
set(gtest_force_shared_crt ON CACHE BOOL "GoogleTest takes the runtime that is set here" FORCE)

target_compile_options(vandrel_options INTERFACE /utf-8 /W4 /permissive- /EHsc /Zc:__cplusplus)
# Functions of the language's library that this compiler would rather replace by its own.
target_compile_definitions(vandrel_options INTERFACE _CRT_SECURE_NO_WARNINGS)
# The manifest is in the resources (resources/vandrel.rc.in), so the linker makes none. The same sources give the same
# bytes. Address randomisation and the like are this linker's own choice.
add_link_options(/MANIFEST:NO /INCREMENTAL:NO /Brepro)

# The DLLs that the program is linked with come from the system's folder alone (LOAD_LIBRARY_SEARCH_SYSTEM32).
function(libraries_from_system_folder_only program)
    target_link_options(${program} PRIVATE /DEPENDENTLOADFLAG:0x800)
endfunction()

# The library's programs load these DLLs when a function of theirs is first called, not at the start.
function(delay_load library)
    foreach(dll ${ARGN})
        target_link_options(${library} PUBLIC /DELAYLOAD:${dll}.dll)
    endforeach()
    target_link_libraries(${library} PUBLIC ${ARGN} delayimp)
endfunction()
