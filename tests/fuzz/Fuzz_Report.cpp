#include "tests/fuzz/Fuzz_Report.h"

#include <cstdlib>
#include <iostream>

namespace Fuzz {

void fail(std::string_view what, std::string_view details) {
    std::cerr << "\n### " << what << '\n' << details << std::endl;
    std::abort();
}

} // namespace Fuzz
