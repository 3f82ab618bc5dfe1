# kerfline_check(<target>... [SCHEME <name or file>])
#
# Adds the sources and headers of the targets to what the target "kerfline_check" checks and
# "kerfline_format" lays out. Files made by the build are left out, and so is what is added to a target
# behind the call. Without SCHEME each file is laid out by the .kerfline.kls nearest above it.
function(kerfline_check)
    cmake_parse_arguments(PARSE_ARGV 0 argument "" "SCHEME" "")
    if(NOT argument_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "kerfline_check needs the name of a target")
    endif()
    set(switches "")
    if(argument_SCHEME)
        set(switches --scheme "${argument_SCHEME}")
    endif()
    foreach(target IN LISTS argument_UNPARSED_ARGUMENTS)
        if(NOT TARGET "${target}")
            message(FATAL_ERROR "kerfline_check: there is no target \"${target}\"")
        endif()
        _kerfline_sources("${target}" files)
        if(files)
            _kerfline_step(check "${target}" "${files}" ${switches} --check)
            _kerfline_step(format "${target}" "${files}" ${switches} -i)
        endif()
    endforeach()
endfunction()

# The C and C++ files that a person wrote for the target, as full paths.
function(_kerfline_sources target result)
    get_target_property(sources "${target}" SOURCES)
    get_target_property(folder "${target}" SOURCE_DIR)
    set(files "")
    foreach(source IN LISTS sources)
        if(NOT source MATCHES "^\\$<" AND source MATCHES "\\.(c|cc|cpp|cxx|h|hh|hpp|hxx)$")
            get_filename_component(path "${source}" ABSOLUTE BASE_DIR "${folder}")
            cmake_path(IS_PREFIX CMAKE_BINARY_DIR "${path}" is_made)
            cmake_path(IS_PREFIX CMAKE_BINARY_DIR "${CMAKE_SOURCE_DIR}" builds_above_sources)
            if(NOT is_made OR builds_above_sources)
                list(APPEND files "${path}")
            endif()
        endif()
    endforeach()
    set(${result} "${files}" PARENT_SCOPE)
endfunction()

# The paths go into a list of their own: a command line has an end.
function(_kerfline_step what target files)
    set(list "${CMAKE_CURRENT_BINARY_DIR}/kerfline_${target}.files")
    list(JOIN files "\n" lines)
    file(CONFIGURE OUTPUT "${list}" CONTENT "${lines}\n" @ONLY)
    add_custom_target("kerfline_${what}_${target}"
        COMMAND "${KERFLINE_PROGRAM}" ${ARGN} "@${list}"
        COMMENT "kerfline: ${what} ${target}"
        VERBATIM)
    if(NOT TARGET "kerfline_${what}")
        add_custom_target("kerfline_${what}")
    endif()
    add_dependencies("kerfline_${what}" "kerfline_${what}_${target}")
endfunction()
