#include "cli/console/Cli_SwitchTable.h"

namespace Cli {

namespace {

constexpr Switch kSwitches[] = {
    {"scheme", 0, ArgumentKind::scheme, "NAME|FILE", "",
     "The scheme: a name, a file with a \"/\" or the ending .kls, or \"none\"", SwitchGroup::scheme},
    {"set", 0, ArgumentKind::property, "NAME=VALUE", "",
     "Set one option of the scheme, the value in the escapes of a scheme file", SwitchGroup::scheme, true},
    {"unset", 0, ArgumentKind::property, "NAME", "",
     "Take one option out of the scheme: its place keeps the source", SwitchGroup::scheme, true},

    {"in-place", 'i', ArgumentKind::none, "", "", "Write each result back to its file, if it changed",
     SwitchGroup::result},
    {"check", 0, ArgumentKind::none, "", "", "Write nothing; name the files that would change, with status 1",
     SwitchGroup::result},
    {"diff", 0, ArgumentKind::none, "", "",
     "Write nothing; show what would change as a patch for git apply, with status 1", SwitchGroup::result},
    {"backup", 0, ArgumentKind::text, "[=EXT]", "",
     "With -i, keep the old text beside each changed file, with .EXT behind its name (.bak)",
     SwitchGroup::result},
    {"no-verify", 0, ArgumentKind::none, "", "",
     "Do not compare the tokens of result and source before writing", SwitchGroup::result},
    {"strict", 0, ArgumentKind::none, "", "",
     "Refuse a file, with status 4, where a construct in it cannot be read, instead of leaving that as it stands",
     SwitchGroup::result},
    {"dump", 0, ArgumentKind::choice, "WHAT", "tokens|tree|messages|scheme|options",
     "Show what is seen of each file, the scheme in force, or all options of schemes", SwitchGroup::result},

    {"lines", 0, ArgumentKind::text, "A:B", "",
     "Lay out lines A to B alone, counted from 1; further --lines add to them", SwitchGroup::files, true},
    {"changed", 0, ArgumentKind::text, "[=REV]", "",
     "Lay out the lines alone that differ from what git has at REV, or else at HEAD", SwitchGroup::files},
    {"from-diff", 0, ArgumentKind::none, "", "",
     "Lay out the lines alone that a patch on standard input changes", SwitchGroup::files},
    {"project", 0, ArgumentKind::file, "FILE", "",
     "Take the files of a compile_commands.json, and the headers beside them", SwitchGroup::files},
    {"stdin-filename", 0, ArgumentKind::file, "FILE", "",
     "The name of standard input, for its scheme, its messages and what is ignored", SwitchGroup::files},
    {"yes", 'y', ArgumentKind::none, "", "",
     "Write back to the files of folders and projects without a question", SwitchGroup::files},
    {"jobs", 'j', ArgumentKind::number, "N", "", "Lay out N files at a time; 0 takes one for each processor",
     SwitchGroup::files},

    {"quiet", 'q', ArgumentKind::none, "", "", "Show errors only", SwitchGroup::messages},
    {"verbose", 'v', ArgumentKind::none, "", "",
     "Name each file, and what was skipped, and count them at the end", SwitchGroup::messages},
    {"color", 0, ArgumentKind::choice, "WHEN", "auto|always|never",
     "Whether messages and patches are coloured", SwitchGroup::messages},
    {"message-format", 0, ArgumentKind::choice, "FORM", "gnu|msvc|json",
     "The form of messages: path:line:col, path(line), or one JSON object a line", SwitchGroup::messages},

    {"help", 'h', ArgumentKind::none, "", "", "Show this page", SwitchGroup::other},
    {"version", 0, ArgumentKind::none, "", "", "Show the version", SwitchGroup::other},
};

} // namespace

std::span<const Switch> switchTable() { return kSwitches; }

std::string_view switchGroupTitle(SwitchGroup group) {
    switch (group) {
    case SwitchGroup::scheme: return "Scheme";
    case SwitchGroup::result: return "Result";
    case SwitchGroup::files: return "Files";
    case SwitchGroup::messages: return "Messages";
    case SwitchGroup::other: break;
    }
    return "Other";
}

} // namespace Cli
