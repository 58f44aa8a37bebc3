# fv2_desktop_texts(<template> <file>): configures a file of the desktop with the program's own texts in it
# (tools/desktop_texts.py).
find_package(Python3 REQUIRED COMPONENTS Interpreter)
function(fv2_desktop_texts template output)
    set(script ${CMAKE_SOURCE_DIR}/tools/desktop_texts.py)
    set(filled ${CMAKE_CURRENT_BINARY_DIR}/${output}.in)
    get_property(tables GLOBAL PROPERTY FV2_STRING_TABLES)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
        ${tables} ${script} ${CMAKE_CURRENT_SOURCE_DIR}/${template})
    get_filename_component(folder ${filled} DIRECTORY)
    file(MAKE_DIRECTORY ${folder})
    execute_process(
        COMMAND ${Python3_EXECUTABLE} -B ${script} ${CMAKE_CURRENT_SOURCE_DIR}/${template} ${filled} ${tables}
        COMMAND_ERROR_IS_FATAL ANY)
    configure_file(${filled} ${output} @ONLY)
endfunction()
