#include "cli/guide/Cli_Completion.h"
#include "cli/guide/Cli_ManPages.h"
#include "help/Help_Html.h"
#include "help/Help_Topic.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

// Writes what the program tells of itself, below one folder: the pages of the help, manual pages, and
// completion scripts. It runs while the program is built, so that no example can go stale.

namespace {

namespace fs = std::filesystem;

void writeFile(const fs::path& path, const std::string& text) {
    fs::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary);
    out << text;
    out.close();
    if (!out) throw std::runtime_error("cannot write " + path.string());
}

void writePages(const fs::path& folder) {
    std::vector<Help::PageLink> pages;
    for (const Help::Topic& topic : Help::topicTable()) pages.push_back({topic.file, topic.title});
    for (const Help::Topic& topic : Help::topicTable()) {
        writeFile(folder / topic.file, Help::htmlPage(Help::topicDocument(topic), topic.file, pages));
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: kerfline_generate FOLDER\n";
        return 2;
    }
    try {
        const fs::path folder = argv[1];
        writePages(folder / "html");
        writeFile(folder / "man/kerfline.1", Cli::programManual());
        writeFile(folder / "man/kerfline-scheme.5", Cli::schemeManual());
        writeFile(folder / "completion/kerfline", Cli::bashCompletion());
        writeFile(folder / "completion/_kerfline", Cli::zshCompletion());
        writeFile(folder / "completion/kerfline.fish", Cli::fishCompletion());
    } catch (const std::exception& error) {
        std::cerr << "kerfline_generate: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
