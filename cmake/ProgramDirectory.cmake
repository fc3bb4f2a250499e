# The program directory: executables, *.dll modules and data files lie side by side in the build tree's bin.
set(THORNWELL_PROGRAM_DIR "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${THORNWELL_PROGRAM_DIR}")

# thornwell_module(NAME FILE SOURCES...): a shared object that the program loads by its `.dll` name at run time.
function(thornwell_module name file)
    add_library(${name} MODULE ${ARGN})
    set_target_properties(${name} PROPERTIES
        PREFIX "" OUTPUT_NAME "${file}" SUFFIX ".dll"
        LIBRARY_OUTPUT_DIRECTORY "${THORNWELL_PROGRAM_DIR}")
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/src")
endfunction()

# thornwell_program(NAME FILE SOURCES...): a companion executable under the exact file name FILE.
function(thornwell_program name file)
    add_executable(${name} ${ARGN})
    set_target_properties(${name} PROPERTIES OUTPUT_NAME "${file}")
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/src")
endfunction()
