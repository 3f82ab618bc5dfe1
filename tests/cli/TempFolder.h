#ifndef KERFLINE_TESTS_TEMPFOLDER_H
#define KERFLINE_TESTS_TEMPFOLDER_H

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include <cstdlib>

/// A folder of its own for one test, removed with it.
class TempFolder {
public:
    TempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "kerfline-test-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    std::string operator/(const std::string& name) const { return (path_ / name).string(); }

    std::string write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
        return *this / name;
    }
    std::string read(const std::string& name) const {
        std::ifstream in(path_ / name, std::ios::binary);
        std::ostringstream out;
        if (in.peek() != std::ifstream::traits_type::eof()) out << in.rdbuf();
        return out.str();
    }
    std::size_t fileCount() const {
        std::size_t count = 0;
        for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(path_)) ++count;
        return count;
    }

private:
    std::filesystem::path path_;
};

#endif
