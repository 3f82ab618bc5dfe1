# Installs a build into a scratch folder and uses what came there as a user would.
# Called as: cmake -DBUILD=<folder> -DWORK=<scratch folder> -DLAYOUT="<bindir>;<docdir>;<mandir>;<datadir>"
#            -DGENERATOR=<name> -P check_install.cmake

list(POP_FRONT LAYOUT bin doc man data)
file(REMOVE_RECURSE "${WORK}")
set(prefix "${WORK}/prefix with blank")

function(run expected)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status STREQUAL expected)
        message(FATAL_ERROR "status ${status} in place of ${expected}: ${ARGN}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

# Without the windows, which not every build has.
run(0 ${CMAKE_COMMAND} --install "${BUILD}" --prefix "${prefix}" --component Unspecified)
foreach(pattern
        ${bin}/kerfline ${doc}/html/Classes.htm ${doc}/html/FormattingAddIn.htm ${doc}/html/kerfline.css
        ${man}/man1/kerfline.1* ${man}/man5/kerfline-scheme.5* ${data}/kerfline/default.kls
        ${data}/bash-completion/completions/kerfline ${data}/zsh/vendor-completions/_kerfline
        ${data}/fish/vendor_completions.d/kerfline.fish ${data}/cmake/Kerfline/KerflineConfig.cmake)
    file(GLOB found "${prefix}/${pattern}")
    if(NOT found)
        message(FATAL_ERROR "not installed: ${pattern}")
    endif()
endforeach()

# The program finds its pages wherever it was put.
set(program "${prefix}/${bin}/kerfline")
run(0 ${CMAKE_COMMAND} -E env --unset=DISPLAY --unset=WAYLAND_DISPLAY "${program}" help --html Classes)
string(STRIP "${output}" page)
if(NOT page STREQUAL "${prefix}/${doc}/html/Classes.htm")
    message(FATAL_ERROR "another page was found: ${page}")
endif()

# A project of its own checks its layout through the module, and mends it.
file(WRITE "${WORK}/project/CMakeLists.txt" [[
cmake_minimum_required(VERSION 3.25)
project(shop NONE)
find_package(Kerfline REQUIRED)
add_library(shop INTERFACE)
target_sources(shop PRIVATE shop.cpp "$<$<BOOL:0>:other.cpp>" notes.txt)
kerfline_check(shop SCHEME "${CMAKE_SOURCE_DIR}/rule.kls")
]])
file(WRITE "${WORK}/project/shop.cpp" "void f() { if(a) b(); }\n")
file(WRITE "${WORK}/project/notes.txt" "if(a)\n")
file(WRITE "${WORK}/project/rule.kls" "Norvane::PropertySet\n1\n\"rule\"\n3 WS_AFTER_CS_KEY \" \"\n")
set(build ${CMAKE_COMMAND} --build "${WORK}/build" --target)
run(0 ${CMAKE_COMMAND} -S "${WORK}/project" -B "${WORK}/build" -G "${GENERATOR}" "-DCMAKE_PREFIX_PATH=${prefix}")
execute_process(COMMAND ${build} kerfline_check RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(status EQUAL 0 OR NOT output MATCHES "shop\\.cpp")
    message(FATAL_ERROR "a file that is not laid out passed:\n${output}")
endif()
run(0 ${build} kerfline_format)
run(0 ${build} kerfline_check)
file(READ "${WORK}/project/shop.cpp" text)
if(NOT text STREQUAL "void f() { if (a) b(); }\n")
    message(FATAL_ERROR "laid out in another way: ${text}")
endif()
