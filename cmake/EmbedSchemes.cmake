# Turns scheme files into a source file that holds them, so that the program needs none of them at
# run time. Called as: cmake -DSCHEMES="a.kls;b.kls" -DOUTPUT=file.cpp -P EmbedSchemes.cmake
#
# The text goes out as short string literals that the compiler joins: a compiler may limit the
# length of one literal, and line-sized ones stay readable in a debugger.

list(SORT SCHEMES)
set(entries "")
foreach(file IN LISTS SCHEMES)
    get_filename_component(name "${file}" NAME_WE)
    file(READ "${file}" text)
    string(REPLACE "\\" "\\\\" text "${text}")
    string(REPLACE "\"" "\\\"" text "${text}")
    string(REPLACE "\n" "\\n\"\n     \"" text "${text}")
    string(APPEND entries "    {\"${name}\",\n     \"${text}\"},\n")
endforeach()

file(WRITE "${OUTPUT}" "#include \"cli/scheme/Cli_ShippedSchemes.h\"

namespace Cli {

std::span<const ShippedScheme> shippedSchemes() {
    static constexpr ShippedScheme schemes[] = {
${entries}    };
    return schemes;
}

} // namespace Cli
")
