# velumo_add_form(target source.toml... [PICTURES folder...] [EMBED [FONTS]]) compiles form sources
# for a program.
#
# Whenever a source, or what is embedded of it, has changed it writes <name>.form, <name>.text and the header <name>.h with
# the object numbers into the folder where the program is built, and puts the header on the
# program's include path. The folders named after PICTURES are copied to the same place first, and
# the form tool adds the pictures of the frame buttons, so that the program can be run from there.
#
# A lock file next to a source, <name>.form.lock, keeps the numbers of the objects; it is written
# again when there are new ones.
#
# With EMBED, form, texts and pictures, and with FONTS the fonts as well, are compiled into the
# program, which loads them with vel_load_forms_from_memory() and can be run from anywhere.

function(velumo_find_velform result)
    foreach(name IN ITEMS velform velumo::velform)
        if(TARGET ${name})
            set(${result} ${name} PARENT_SCOPE)
            return()
        endif()
    endforeach()
    message(
        FATAL_ERROR
        "velumo_add_form needs the form tool velform, which was not installed with Velumo or, "
        "inside another project, cannot be built: it needs toml++, CLI11, fmt and libpng."
    )
endfunction()

function(velumo_compile_form target source pictures options)
    velumo_find_velform(velform)
    get_filename_component(name ${source} NAME_WE)
    get_filename_component(source ${source} ABSOLUTE)
    set(base ${CMAKE_CURRENT_BINARY_DIR}/${name})
    # With a pattern, so that CMake notices when it comes or goes.
    string(REGEX REPLACE "[.][^.]*$" "" lock ${source})
    file(GLOB lock CONFIGURE_DEPENDS ${lock}.form.lock)
    set(data "")
    if(options)
        set(data ${base}_form.c)
        list(PREPEND options --embed ${data})
        list(REMOVE_ITEM options EMBED)
    endif()
    add_custom_command(
        OUTPUT ${base}.form ${base}.text ${base}.h ${data}
        COMMAND
            ${velform} compile ${source} --form ${base}.form --text ${base}.text
            --header ${base}.h --depfile ${base}.d ${options}
        DEPENDS ${source} ${lock} ${velform} ${pictures}
        DEPFILE ${base}.d
        COMMENT "Compiling form ${name}"
        VERBATIM
    )
    target_sources(${target} PRIVATE ${base}.h ${data})
endfunction()

# Copies folders next to the program. Stamps tell when they have changed.
function(velumo_copy_pictures result folders)
    set(stamps "")
    foreach(folder IN LISTS folders)
        get_filename_component(folder ${folder} ABSOLUTE)
        get_filename_component(name ${folder} NAME)
        file(GLOB files CONFIGURE_DEPENDS ${folder}/*)
        set(stamp ${CMAKE_CURRENT_BINARY_DIR}/${name}.copied)
        add_custom_command(
            OUTPUT ${stamp}
            COMMAND
                ${CMAKE_COMMAND} -E copy_directory ${folder} ${CMAKE_CURRENT_BINARY_DIR}/${name}
            COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
            DEPENDS ${files}
            VERBATIM
        )
        list(APPEND stamps ${stamp})
    endforeach()
    set(${result} ${stamps} PARENT_SCOPE)
endfunction()

function(velumo_add_form target)
    cmake_parse_arguments(PARSE_ARGV 1 form "EMBED;FONTS" "" PICTURES)
    if(NOT form_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "velumo_add_form needs at least one form source")
    endif()
    velumo_copy_pictures(pictures "${form_PICTURES}")
    set(options "")
    if(form_EMBED)
        set(options EMBED)
        if(form_FONTS)
            list(APPEND options --embed-fonts)
        endif()
    endif()
    foreach(source IN LISTS form_UNPARSED_ARGUMENTS)
        velumo_compile_form(${target} ${source} "${pictures}" "${options}")
    endforeach()
    target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
endfunction()
