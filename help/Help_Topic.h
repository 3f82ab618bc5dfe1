#ifndef KERFLINE_HELP_TOPIC_H
#define KERFLINE_HELP_TOPIC_H

#include "help/Help_Document.h"
#include "src/scheme/Norvane_PropertyCatalogue.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Help {

/// One page of the help.
struct Topic {
    /// The file of the page, such as "Classes.htm".
    std::string_view file;
    std::string_view title;
    /// One line for a list of pages.
    std::string_view summary;
    /// What stands above the options, paragraph by paragraph. Only for a page of options.
    std::span<const std::string_view> introduction;
};

/// The file of the page that leads to all others.
inline constexpr std::string_view kOverviewFile = "FormattingAddIn.htm";

/// The overview, and behind it the families of options in the order of the scheme sheet.
std::span<const Topic> topicTable();

/// By file or title, whatever the case of letters, with or without blanks and ".htm". Null for none.
const Topic* findTopic(std::string_view name);

/// The names by which a person asks for the topics: the files without their ending.
std::vector<std::string_view> topicNames();

/// The options that a page explains, in the order in which it does. Every option of the catalogues,
/// the switches of the options window included, stands on one page.
std::vector<const Norvane::PropertyInfo*> optionsOf(const Topic& topic);

/// The page that explains an option. Null for an unknown one.
const Topic* topicOf(std::string_view option);

/// The whole page. The examples on it are made here, by the formatter itself.
Document topicDocument(const Topic& topic);

} // namespace Help

#endif
