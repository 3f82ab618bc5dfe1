#ifndef KERFLINE_HELP_SAMPLETABLE_H
#define KERFLINE_HELP_SAMPLETABLE_H

#include "help/Help_Sample.h"

namespace Help {

/// Every sample. Those of one option stand together.
std::span<const Sample> sampleTable();

} // namespace Help

#endif
