# The program directory that ./run starts from: samples, their plugins, the program and the launchers. A file is
# copied when it changes here, so what a user changes there stays.
set(BRASQUELIN_PROGRAM_DIRECTORY ${CMAKE_BINARY_DIR}/Brasquelin)

# With the ending on Linux, too: profiles travel, a plugin's name is its file's name without the last four characters, and
# the editor offers programs by their ending.
set(BRASQUELIN_PLUGINS folderinfo listfiles notempty today)
foreach(plugin ${BRASQUELIN_PLUGINS})
    add_executable(${plugin} ${CMAKE_SOURCE_DIR}/samples/plugins/${plugin}.cpp)
    target_link_libraries(${plugin} PRIVATE brasquelin_options)
    set_target_properties(${plugin} PROPERTIES SUFFIX .exe
                          RUNTIME_OUTPUT_DIRECTORY ${BRASQUELIN_PROGRAM_DIRECTORY}/plugins)
    if(MINGW)
        target_link_options(${plugin} PRIVATE -static)
    endif()
endforeach()

function(copy_to_program_directory from to)
    set(copy ${BRASQUELIN_PROGRAM_DIRECTORY}/${to})
    add_custom_command(OUTPUT ${copy} DEPENDS ${from} COMMAND ${CMAKE_COMMAND} -E copy ${from} ${copy} VERBATIM)
    set_property(GLOBAL APPEND PROPERTY BRASQUELIN_COPIES ${copy})
endfunction()

file(GLOB_RECURSE samples CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/samples ${CMAKE_SOURCE_DIR}/samples/*)
list(FILTER samples EXCLUDE REGEX "^plugins/")
# The commands of the samples are those of Linux. What takes their place on Windows stands below "windows"; what has none:
set(linux_samples profiles/checksums.bqp profiles/remotebackup.bqp profiles/writesums.bqp libraries/checksums.bqs
    libraries/remotecopy.bqs libraries/writesums.bqs)
set(windows_samples ${samples})
list(FILTER windows_samples INCLUDE REGEX "^windows/")
list(FILTER samples EXCLUDE REGEX "^windows/")
if(WIN32)
    # The jobs run in the run window: the way of a Linux desktop, which is a setting here.
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS samples/Brasquelin.ini)
    file(READ ${CMAKE_SOURCE_DIR}/samples/Brasquelin.ini settings)
    string(REPLACE "ImageMagick=convert" "ImageMagick=magick" settings "${settings}")
    string(REPLACE "[/config]" "ShellExec = $exepath$\\Brasquelin.exe --run\n\n[/config]" settings "${settings}")
    file(CONFIGURE OUTPUT generated/Brasquelin.ini CONTENT "${settings}" @ONLY NEWLINE_STYLE CRLF)
    foreach(sample ${windows_samples})
        string(REPLACE "windows/" "" name ${sample})
        copy_to_program_directory(${CMAKE_SOURCE_DIR}/samples/${sample} ${name})
        list(REMOVE_ITEM samples ${name})
    endforeach()
    list(REMOVE_ITEM samples Brasquelin.ini ${linux_samples})
    copy_to_program_directory(${CMAKE_BINARY_DIR}/generated/Brasquelin.ini Brasquelin.ini)
endif()
foreach(sample ${samples})
    copy_to_program_directory(${CMAKE_SOURCE_DIR}/samples/${sample} ${sample})
endforeach()
if(WIN32)
    copy_to_program_directory(${CMAKE_SOURCE_DIR}/launchers/windows/in-terminal.cmd in-terminal.cmd)
else()
    foreach(launcher brasquelin-batch in-parallel in-slurm in-terminal job-list)
        copy_to_program_directory(${CMAKE_SOURCE_DIR}/launchers/linux/${launcher} ${launcher})
    endforeach()
    copy_to_program_directory(${CMAKE_SOURCE_DIR}/platform/wx/pictures/program.svg brasquelin.svg)
endif()

# The page that the program shows as its manual, one file. Without the tool there is none, and the program tells so.
find_program(BRASQUELIN_LOWDOWN lowdown)
if(BRASQUELIN_LOWDOWN)
    set(documents manual.md checks.md trust.md reliability.md manualHead.html)
    list(TRANSFORM documents PREPEND ${CMAKE_SOURCE_DIR}/docs/)
    set(page ${BRASQUELIN_PROGRAM_DIRECTORY}/manual.html)
    add_custom_command(OUTPUT ${page} DEPENDS ${documents} ${CMAKE_SOURCE_DIR}/cmake/manualPage.cmake VERBATIM
                       COMMAND ${CMAKE_COMMAND} -DLOWDOWN=${BRASQUELIN_LOWDOWN} -DDOCS=${CMAKE_SOURCE_DIR}/docs
                               -DPAGE=${page} -P ${CMAKE_SOURCE_DIR}/cmake/manualPage.cmake)
    set_property(GLOBAL APPEND PROPERTY BRASQUELIN_COPIES ${page})
else()
    message(STATUS "lowdown is not there: the program gets no manual.html")
endif()

get_property(copies GLOBAL PROPERTY BRASQUELIN_COPIES)
add_custom_target(program_directory ALL DEPENDS ${copies} ${BRASQUELIN_PLUGINS})
foreach(part brasquelin brasquelin_windows)
    if(TARGET ${part})
        set_target_properties(${part} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${BRASQUELIN_PROGRAM_DIRECTORY}
                              LIBRARY_OUTPUT_DIRECTORY ${BRASQUELIN_PROGRAM_DIRECTORY})
        add_dependencies(program_directory ${part})
    endif()
endforeach()
