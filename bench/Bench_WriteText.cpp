#include "bench/Bench_Texts.h"

#include <iostream>
#include <string>

/// Writes one of the texts of the benchmark to standard output; without a name, the names.
int main(int argc, char** argv) {
    if (argc < 2) {
        for (const Bench::Text& text : Bench::texts()) std::cout << text.name << '\n';
        for (const Bench::Text& text : Bench::wrapTexts()) std::cout << text.name << '\n';
        return 0;
    }
    const Bench::Text* text = Bench::findText(argv[1]);
    if (!text) {
        std::cerr << "no text is called " << argv[1] << '\n';
        return 2;
    }
    std::cout << text->make(1);
    return std::cout.flush().good() ? 0 : 3;
}
