#ifndef KERFLINE_ADDIN_TEXTS_H
#define KERFLINE_ADDIN_TEXTS_H

#include <string_view>

/// Every text that the add-in shows. Each "%s" is filled from left to right.
namespace Addin::Texts {

// Commands and events.
inline constexpr std::string_view kNoScheme =
    "You have not selected a scheme to use when formatting. Please indicate via the Kerfline Options dialog which "
    "Scheme you wish to use when formatting before attempting to format again.";
inline constexpr std::string_view kNoDocument =
    "Kerfline was unable to find an active text file in the currently loaded workspace. Please open a text file "
    "before trying this command again.";
inline constexpr std::string_view kFormattingActiveFile = "Formatting active file using scheme \"%s\".";
inline constexpr std::string_view kHelpTopic = "::/FormattingAddIn.htm";

// Steps in the progress dialog.
inline constexpr std::string_view kOpening = "Opening file:\n%s";
inline constexpr std::string_view kWriting = "Writing file:\n%s";
inline constexpr std::string_view kCompleted = "Completed file:\n%s";
inline constexpr std::string_view kNotFormatted = "The file will not be formatted:\n%s";

// One file or document.
inline constexpr std::string_view kFormatting = "Formatting \"%s\".";
inline constexpr std::string_view kNotFound = "The file \"%s\" cannot be found.";
inline constexpr std::string_view kNoPermissions =
    "The file \"%s\" does not have read/write permissions and cannot be formatted.";
inline constexpr std::string_view kUnreadable =
    "Kerfline was unable to read the contents of the file \"%s\". The file will not be formatted.";
inline constexpr std::string_view kBackupFailed =
    "Kerfline was unable to create a backup file for the file \"%s\". The file will not be formatted.";
inline constexpr std::string_view kUnwritable =
    "Kerfline was unable to write the formatted text back to the file \"%s\". The file will not be formatted.";
inline constexpr std::string_view kNotParsed =
    "Kerfline could not successfully parse the file %s. Please report this problem together with the file, if it "
    "compiles. The file will not be formatted.";
inline constexpr std::string_view kUnexpected = "An unexpected error has occurred. The current Kerfline "
                                                "operation has failed. Please contact Technical Support "
                                                "and report the following details: %s";
inline constexpr std::string_view kOutOfMemory =
    "Kerfline is out of memory. Please try closing applications before attempting to run this application again.";
inline constexpr std::string_view kUnknownDetail = "Unknown";
/// Behind a text about a failure that ended the formatting of one file.
inline constexpr std::string_view kFileEnding = " The file \"%s\" will not be formatted.";
inline constexpr std::string_view kHoldsNul = "The text is no source: it holds a NUL character.";
inline constexpr std::string_view kBrokenUtf16 = "The text cannot be read: it is marked as UTF-16, but ill-formed.";
inline constexpr std::string_view kUtf32 = "The text cannot be read: it is in UTF-32.";
/// Behind a diagnostic about the text that was laid out, and not about the source.
inline constexpr std::string_view kPlaceInResult = " (line and column of the text before wrapping)";
inline constexpr std::string_view kTooLarge = "The text is too large to be formatted.";

// Documents only.
inline constexpr std::string_view kActiveDocument = "active document";
inline constexpr std::string_view kUnknownName = "<Unknown>";
inline constexpr std::string_view kReadOnlyDocument =
    "The file you are attempting to format is read only and cannot be formatted.";
inline constexpr std::string_view kAskExtension =
    "The file \"%s\" does not have a file extension registered with Kerfline as valid for formatting. Format the "
    "file anyway?";
inline constexpr std::string_view kAskSave =
    "The file you have chosen to reformat is unsaved. Would you like to save it before Kerfline reformats it?";
inline constexpr std::string_view kSaveFailed =
    "Kerfline was unable to save the file. The file will not be formatted.";
inline constexpr std::string_view kNoText = "Kerfline was unable to obtain the text of the active file from "
                                            "Visual Studio. The file will not be formatted.";

// Batches. The spelling of the first is the one that people search for.
inline constexpr std::string_view kNoModule =
    "Kerfline was unable to load a component it needs for succesful operation. Kerfline will not be available.";
inline constexpr std::string_view kNoProject =
    "Kerfline was unable to find an active project in the currently loaded workspace. Please set a project to be "
    "active before trying this command again.";
inline constexpr std::string_view kNoWorkspace =
    "No workspace is currently loaded. Please open a workspace before trying this command again.";
inline constexpr std::string_view kAskProject =
    "You have chosen to format all C/C++ files in the project \"%s\". Are you sure you wish to continue?";
inline constexpr std::string_view kAskWorkspace =
    "You have chosen to format all C/C++ files in the workspace \"%s\". Are you sure you wish to continue?";
inline constexpr std::string_view kFormattingActiveProject = "Formatting active project using scheme \"%s\".";
inline constexpr std::string_view kFormattingWorkspace = "Formatting workspace \"%s\" using scheme \"%s\".";
inline constexpr std::string_view kFormattingProject = "Formatting project \"%s\" using scheme \"%s\".";
inline constexpr std::string_view kCancelled = "Format operation cancelled at user's request.";
inline constexpr std::string_view kFinishedProject = "Finished formatting project.";
inline constexpr std::string_view kFinishedWorkspace = "Finished formatting workspace.";

// For hosts with commands of their own: none of the five shows these.
inline constexpr std::string_view kFormattingActiveWorkspace = "Formatting active workspace using scheme \"%s\".";
inline constexpr std::string_view kFormattingFileOf = "Formatting file %d of %d";
inline constexpr std::string_view kListingTree =
    "Creating the list of C/C++ files in the directory tree %s";
inline constexpr std::string_view kFormattingTree = "Formatting files under directory \"%s\" using scheme \"%s\".";
inline constexpr std::string_view kFinishedTree = "Finished formatting directory tree.";
inline constexpr std::string_view kAskTree = "You have chosen to format all C/C++ files under the directory "
                                             "tree \"%s\". Are you sure you wish to continue?";

// Settings and schemes.
inline constexpr std::string_view kSettingsNotOpened =
    "Could not open application registry key. Any options you set during this session will not be saved.";
inline constexpr std::string_view kSettingsNotCreated =
    "Failed to create registry settings. Any options you set during this session will not be saved.";
inline constexpr std::string_view kSchemeUnreadable =
    "Kerfline encountered an error while trying to read the scheme file \"%s\". To correct the problem, you "
    "should delete this file before restarting Kerfline and attempting this operation again.";
inline constexpr std::string_view kSchemeUnwritable =
    "Kerfline encountered an error while trying to write the scheme file \"%s\". To correct the problem, "
    "ensure you have enough disk space and that the directory \"%s\" can be written to.";

/// Names of the thresholds 0 to 3.
inline constexpr std::string_view kThresholds[] = {"Never display", "Information or greater", "Warning or greater",
                                                   "Error or greater"};

} // namespace Addin::Texts

#endif
