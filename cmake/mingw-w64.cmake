# Cross build for Windows with the compiler and the libraries that scripts/windows-toolchain prepares.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)

if(NOT DEFINED ENV{BRASQUELIN_WINDOWS_KIT})
    execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/../scripts/windows-toolchain --print-directory
                    OUTPUT_VARIABLE kit OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    set(ENV{BRASQUELIN_WINDOWS_KIT} ${kit})
endif()

set(CMAKE_FIND_ROOT_PATH $ENV{BRASQUELIN_WINDOWS_KIT} /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_FIND_PACKAGE_PREFER_CONFIG ON)
