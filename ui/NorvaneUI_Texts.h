#ifndef KERFLINE_NORVANEUI_TEXTS_H
#define KERFLINE_NORVANEUI_TEXTS_H

#include <string_view>

/// Every text that the options interface shows, apart from the names of options. Each "%s" is
/// filled from left to right.
namespace NorvaneUI::Texts {

// Settings.
inline constexpr std::string_view kShipped = " (comes with the program)";
inline constexpr std::string_view kBadExtension =
    "Error: Invalid file extension entered. File extensions may not contain any of the following "
    "characters: \"<>:\\/|?\"";

// Fields of a page.
inline constexpr std::string_view kWhiteSpaceOnly =
    "Please only enter white space.\nValid entries are: \\n (newline)  \\t (tab)  or  \\s (space)";
inline constexpr std::string_view kNoLineBreak =
    "An indent stands within one line. Please leave out \\n and \\r.";
inline constexpr std::string_view kNumberRange = "Please enter a number from %s to %s.";
inline constexpr std::string_view kOtherValue = "other (%s)";
inline constexpr std::string_view kMissingGlobals = "Not set on the Globals page: %s.";

// Preview.
inline constexpr std::string_view kNoPreview = "No Preview Available";
inline constexpr std::string_view kLeftAsIs = "Code will be left as is";
inline constexpr std::string_view kHidePreview = "Hide &Preview <<";
inline constexpr std::string_view kShowPreview = "Show &Preview >>";
inline constexpr std::string_view kTextUnreadable = "The file \"%s\" cannot be read.";
inline constexpr std::string_view kTextNoSource = "The file \"%s\" is no source text.";

// Schemes.
inline constexpr std::string_view kNewScheme = "New Scheme";
inline constexpr std::string_view kModified = " (Modified)";
inline constexpr std::string_view kAskDelete =
    "Delete the scheme \"%s\"? Its file goes when you save; until you close this window, it can be brought back. "
    "Where the settings name it, no scheme takes its place.";
inline constexpr std::string_view kAskDeleteNew = "Delete the scheme \"%s\"? Until you close this window, it can be "
                                                  "brought back.";
inline constexpr std::string_view kCannotDelete = "This scheme is built-in and cannot be deleted.";
inline constexpr std::string_view kCannotRename = "This scheme is built-in and cannot be renamed.";
inline constexpr std::string_view kModifiedBuiltIn =
    "You have modified a built-in scheme that is read only. Choose Yes to save the changes to a new "
    "scheme, No to discard the changes and Cancel to return to the Manage Schemes dialog.";
inline constexpr std::string_view kModifiedOwn =
    "You have modified schemes. Choose Yes to save the changes, No to discard the changes and Cancel to "
    "return to the Manage Schemes dialog.";

inline constexpr std::string_view kSameName =
    "The files \"%s\" and \"%s\" both hold a scheme \"%s\". The one in \"%s\" is in use.";

inline constexpr std::string_view kLeftOut = "%s cannot be read as a scheme and is left out.";
inline constexpr std::string_view kFileProblem = "%s, line %s: %s";

// Another program at work in the scheme folder.
inline constexpr std::string_view kChangedMeanwhile =
    "Another program has changed the scheme \"%s\". Your changes are kept, and you will be asked which of "
    "the two to keep when you save.";
inline constexpr std::string_view kRemovedMeanwhile =
    "Another program has removed the scheme \"%s\". Your changes are kept, and you will be asked whether "
    "to write it again when you save.";
inline constexpr std::string_view kAskReplace =
    "Another program has changed the scheme \"%s\". Choose Yes to replace it with yours, No to discard "
    "your changes and Cancel to return to the Manage Schemes dialog.";
inline constexpr std::string_view kAskWriteAgain =
    "Another program has removed the scheme \"%s\". Choose Yes to write it again, No to discard your "
    "changes and Cancel to return to the Manage Schemes dialog.";
inline constexpr std::string_view kAskRemove =
    "Another program has changed the scheme \"%s\" that you have deleted. Choose Yes to delete it, No to "
    "keep it and Cancel to return to the Manage Schemes dialog.";
inline constexpr std::string_view kNoFolder =
    "There is no folder to keep schemes in, so your changes cannot be saved.";

} // namespace NorvaneUI::Texts

#endif
