#include "cli/scheme/Cli_SchemeShelf.h"

#include "cli/scheme/Cli_SchemeLoader.h"
#include "cli/scheme/Cli_ShippedSchemes.h"

#include <filesystem>

namespace Cli {

SchemeShelf::SchemeShelf(SchemeFinder& finder, std::optional<std::string> wanted,
                         std::vector<SchemeEdit> edits, Report& report)
    : finder_(finder), wanted_(std::move(wanted)), edits_(std::move(edits)), report_(report) {}

const Norvane::PropertySet* SchemeShelf::schemeIn(const std::string& folder) {
    const auto known = byFolder_.find(folder);
    if (known != byFolder_.end()) return known->second;
    return byFolder_[folder] = load(folder);
}

const Norvane::PropertySet* SchemeShelf::load(const std::string& folder) {
    // A name that is unknown in one folder is so in most others, too.
    if (nameReported_) return nullptr;
    const auto source = finder_.find(wanted_, folder);
    if (!source) {
        nameReported_ = true;
        return nullptr;
    }
    const auto [place, isNew] =
        schemes_.try_emplace({source->kind, source->path.empty() ? source->name : source->path});
    std::optional<Norvane::PropertySet>& scheme = place->second;
    if (!isNew) return scheme ? &*scheme : nullptr;
    scheme = read(*source);
    // Wrong edits are named even if the scheme is wrong too: one run shows all that is to be mended.
    Norvane::PropertySet edited = scheme ? *scheme : Norvane::PropertySet();
    Report ofEdits(report_.style());
    applyEdits(edits_, edited, ofEdits);
    const bool isGood = scheme.has_value() && ofEdits.status() == ExitStatus::done;
    if (!editsReported_) report_.merge(std::move(ofEdits));
    editsReported_ = true;
    if (!isGood) {
        scheme.reset();
        return nullptr;
    }
    scheme = std::move(edited);
    return &*scheme;
}

std::optional<Norvane::PropertySet> SchemeShelf::read(const SchemeSource& source) {
    switch (source.kind) {
    case SchemeSource::Kind::empty: return Norvane::PropertySet(source.name);
    case SchemeSource::Kind::shipped:
        return parseSchemeText(source.name + ".kls", findShippedScheme(source.name)->text, report_);
    case SchemeSource::Kind::project:
        // Nobody asked for it by name, so nobody would know what the program waits for.
        if (std::filesystem::is_fifo(source.path)) {
            report_.error({source.path}, "a pipe is no scheme", ExitStatus::badUsageOrScheme);
            return std::nullopt;
        }
        break;
    case SchemeSource::Kind::file:
    case SchemeSource::Kind::user: break;
    }
    return loadSchemeFile(source.path, report_);
}

} // namespace Cli
