#ifndef KERFLINE_CPP_CONDITIONALFOLDER_H
#define KERFLINE_CPP_CONDITIONALFOLDER_H

#include "cpp/Cpp_TokenTable.h"

#include <span>
#include <vector>

namespace Cpp {

/// Which branch of a conditional group stays visible, and in which groups the others are hidden.
enum class Fold {
    UnbalancedKeepFirst, ///< only groups in which a branch opens or closes more than it should
    UnbalancedKeepLast,
    AllKeepFirst,
    AllKeepLast,
};

/// Hides branches of conditional groups: each hidden stretch, directives included, becomes one
/// region that is copied as it stands. A group without alternatives is hidden whole, if unbalanced.
///
///     #ifdef A                 #ifdef A
///     if (x) {                 if (x) {
///     #else           gives    <region: from "#else" through "#endif">
///     if (y) {
///     #endif
///
/// Groups inside a visible branch are folded, too. Without "#if" nothing changes.
std::vector<ParseToken> foldConditionals(std::string_view source, std::span<const ParseToken> tokens, Fold fold);

/// True if the tokens hold a conditional group.
bool hasConditionals(std::string_view source, std::span<const ParseToken> tokens);

} // namespace Cpp

#endif
