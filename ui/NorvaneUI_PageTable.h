#ifndef KERFLINE_NORVANEUI_PAGETABLE_H
#define KERFLINE_NORVANEUI_PAGETABLE_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace NorvaneUI {

/// The pages of the scheme sheet, in the order in which they are shown and counted.
enum class PageId {
    Globals,
    Classes,
    Enums,
    Namespaces,
    Functions,
    ControlStatements,
    Data,
    Expressions,
    LineWrapping,
    MemberInits,
    PointersRefs,
    Preprocessor,
    Templates,
};

/// How an option is edited. Each control can also say that the option is not set.
enum class ControlKind {
    /// Text with escapes.
    WhiteSpace,
    /// So many blanks, or so many tabs.
    CountAndKind,
    Switch,
    Number,
    /// One of a few values that have a name each.
    Choice,
};

/// One control of a page.
struct PageOption {
    std::string_view name;
    ControlKind kind;
    /// What can be entered, both ends included, and what an option that had no value begins with. Only
    /// for Number.
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    std::int32_t first = 0;
    /// The global option whose value is copied here while the page uses the global settings. Empty:
    /// none.
    std::string_view global = {};
    /// The do-not-format box of the page takes the option out of the scheme.
    bool erasedByBox = true;
};

/// One page: its names, the keys under which it keeps its own switches, and its controls. A name or
/// key that a page does not have is empty.
struct PageInfo {
    PageId id;
    std::string_view className;
    std::string_view title;
    std::string_view previewName;
    std::string_view helpTopic;
    std::string_view useGlobalSettingsKey;
    std::string_view doNotFormatKey;
    /// Identifiers of the page's controls in the help count from here. 0: none.
    std::uint32_t helpContextBase;
    /// The construct has a body in braces. The first four of `options` are then, in this order, the
    /// white space in front of and behind the "{" and in front of the "}", and the indent.
    bool hasBody;
    std::span<const PageOption> options;
};

/// All pages, in the order of PageId.
std::span<const PageInfo> pageTable();
const PageInfo& pageInfo(PageId id);

/// The place of an option on the pages.
struct OptionHome {
    const PageInfo* page = nullptr;
    /// Null for one of the two switches of the page itself.
    const PageOption* option = nullptr;
};

/// `page` is null for a name that no page edits.
OptionHome homeOf(std::string_view option);

/// Options of the catalogue that have no control: no pass reads them, or they are the program's own.
/// They stay in a scheme as they are.
std::span<const std::string_view> optionsWithoutControl();

} // namespace NorvaneUI

#endif
