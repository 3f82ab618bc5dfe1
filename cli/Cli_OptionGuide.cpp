#include "cli/Cli_OptionGuide.h"

#include "cli/Cli_OptionList.h"

namespace Cli {

ExitStatus runOptionsCommand(const std::vector<std::string>&, const Streams& streams) {
    listSchemeOptions(streams.out);
    return ExitStatus::done;
}

} // namespace Cli
