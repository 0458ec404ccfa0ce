# The program directory that ./run starts from: samples, their plugins, the program and the batch runner.
set(BRASQUELIN_PROGRAM_DIRECTORY ${CMAKE_BINARY_DIR}/Brasquelin)

foreach(plugin folderinfo notempty)
    add_executable(${plugin} ${CMAKE_SOURCE_DIR}/samples/plugins/${plugin}.cpp)
    target_link_libraries(${plugin} PRIVATE brasquelin_options)
    set_target_properties(${plugin} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${BRASQUELIN_PROGRAM_DIRECTORY}/plugins)
    if(MINGW)
        target_link_options(${plugin} PRIVATE -static)
    endif()
endforeach()

set(copies
    COMMAND ${CMAKE_COMMAND} -E make_directory ${BRASQUELIN_PROGRAM_DIRECTORY})
foreach(part profiles libraries functions material temp)
    list(APPEND copies COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_SOURCE_DIR}/samples/${part}
         ${BRASQUELIN_PROGRAM_DIRECTORY}/${part})
endforeach()
foreach(file Brasquelin.ini list.txt)
    list(APPEND copies COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/samples/${file}
         ${BRASQUELIN_PROGRAM_DIRECTORY}/${file})
endforeach()
if(NOT WIN32)
    list(APPEND copies COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/launchers/linux/brasquelin-batch
         ${BRASQUELIN_PROGRAM_DIRECTORY}/brasquelin-batch)
endif()
add_custom_target(program_directory ALL ${copies} DEPENDS folderinfo notempty VERBATIM)
if(TARGET brasquelin)
    set_target_properties(brasquelin PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${BRASQUELIN_PROGRAM_DIRECTORY})
    add_dependencies(program_directory brasquelin)
endif()
