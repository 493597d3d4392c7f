# GCC and Clang, with the linker of binutils or one that takes its options.
set(vandrel_section_for_each -ffunction-sections -fdata-sections)
set(vandrel_compile_fast -O0)
set(vandrel_compile_well -O2)

target_compile_options(vandrel_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wold-style-cast -Werror
    # GCC does not know that a precompiled wmemcpy is the system's, and sees it copy more than a text of one letter has.
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:$<TARGET_PROPERTY:PRECOMPILE_HEADERS>>>:-Wno-array-bounds;-Wno-stringop-overread>)
if(VANDREL_SANITIZE)
    target_compile_options(vandrel_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(vandrel_options INTERFACE -fsanitize=address,undefined)
endif()

if(WIN32)
    set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
    # Address randomisation over the whole address space, no execution of data, no section both writable and
    # executable, no time stamp: the same sources give the same bytes. A window program for less than version 6
    # would be told the sizes of frames that Windows had before.
    add_link_options(-s -Wl,--dynamicbase,--high-entropy-va,--nxcompat,--no-insert-timestamp,--gc-sections
        -Wl,--major-subsystem-version=6,--minor-subsystem-version=1,--major-os-version=6,--minor-os-version=1)
    target_compile_options(vandrel_options INTERFACE -fstack-protector-strong)
    target_link_options(vandrel_options INTERFACE -fstack-protector-strong)
    target_link_options(vandrel_wide_main INTERFACE -municode)
endif()

# The DLLs that the program is linked with come from the system's folder alone. This linker has no option for it.
function(libraries_from_system_folder_only program)
    target_sources(${program} PRIVATE load_config_gnu.cpp)
    target_link_options(${program} PRIVATE -Wl,-u,_load_config_used)
    add_custom_command(TARGET ${program} POST_BUILD VERBATIM
        COMMAND bash "${PROJECT_SOURCE_DIR}/cmake/enter-load-config" "$<TARGET_FILE:${program}>" "${CMAKE_OBJDUMP}")
endfunction()

# The library's programs load these DLLs when a function of theirs is first called, not at the start. For each of them
# cmake/delay_load lists the functions; any other is linked as usual, so that the DLL is loaded at the start after all.
# None may take a floating-point number, which would be lost at the first call.
function(delay_load library)
    set(folder "${PROJECT_BINARY_DIR}/delay_load")
    file(MAKE_DIRECTORY "${folder}")
    foreach(dll ${ARGN})
        set(functions "${PROJECT_SOURCE_DIR}/cmake/delay_load/${dll}.def")
        set(archive "${folder}/lib${dll}.a")
        add_custom_command(OUTPUT "${archive}" DEPENDS "${functions}" WORKING_DIRECTORY "${folder}" VERBATIM
            COMMAND "${CMAKE_DLLTOOL}" --temp-prefix ${dll} --input-def "${functions}" --output-delaylib lib${dll}.a)
        list(APPEND archives "${archive}")
    endforeach()
    add_custom_target(${library}_delay_load DEPENDS ${archives})
    add_dependencies(${library} ${library}_delay_load)
    target_link_libraries(${library} PUBLIC ${archives} delayimp)
endfunction()
