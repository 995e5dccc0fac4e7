# velumo_add_form(target source.toml [PICTURES folder...] [EMBED [FONTS]]) compiles a form source
# for a program.
#
# Whenever the source has changed it writes <name>.form, <name>.text and the header <name>.h with
# the object numbers into the folder where the program is built, and puts the header on the
# program's include path. The folders named after PICTURES are copied to the same place first, and
# the form tool adds the pictures of the frame buttons, so that the program can be run from there.
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

function(velumo_add_form target source)
    cmake_parse_arguments(PARSE_ARGV 2 form "EMBED;FONTS" "" PICTURES)
    velumo_find_velform(velform)
    get_filename_component(name ${source} NAME_WE)
    get_filename_component(source ${source} ABSOLUTE)
    set(base ${CMAKE_CURRENT_BINARY_DIR}/${name})

    set(copies "")
    set(pictures "")
    foreach(folder IN LISTS form_PICTURES)
        get_filename_component(folder ${folder} ABSOLUTE)
        get_filename_component(folder_name ${folder} NAME)
        file(GLOB files CONFIGURE_DEPENDS ${folder}/*)
        list(APPEND pictures ${files})
        list(
            APPEND copies
            COMMAND ${CMAKE_COMMAND} -E copy_directory ${folder}
                ${CMAKE_CURRENT_BINARY_DIR}/${folder_name}
        )
    endforeach()

    set(data "")
    set(embed "")
    if(form_EMBED)
        set(data ${base}_form.c)
        set(embed --embed ${data})
    endif()
    if(form_FONTS)
        list(APPEND embed --embed-fonts)
    endif()

    add_custom_command(
        OUTPUT ${base}.form ${base}.text ${base}.h ${data}
        ${copies}
        COMMAND
            ${velform} compile ${source}
            --form ${base}.form --text ${base}.text --header ${base}.h ${embed}
        DEPENDS ${source} ${velform} ${pictures}
        COMMENT "Compiling form ${name}"
        VERBATIM
    )
    target_sources(${target} PRIVATE ${base}.h ${data})
    target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
endfunction()
