#include "cli/run/Cli_CodeSample.h"

#include "addin/Addin_SourceForm.h"
#include "cli/files/Cli_FileCollector.h"
#include "cli/files/Cli_IgnoreRules.h"
#include "cli/run/Cli_TerminalHost.h"
#include "cli/run/Cli_UserSettings.h"

#include <utility>

namespace Cli {

CodeSample::CodeSample(const std::vector<std::string>& paths, const Streams& streams, Report& report)
    : report_(report) {
    Options options;
    options.files = paths;
    TerminalHost host(streams, report, Verbosity::normal, false);
    const Addin::AddInOptions settings = readUserSettings(disk_, host);
    IgnoreRules ignored(disk_, report);
    FileCollector collector(options, settings, disk_, ignored, streams.in, report);
    for (WorkItem& item : collector.collect()) {
        const auto status = disk_.status(item.path);
        if (item.ignoredBy || item.isStandardInput || !status || status->kind != NorvaneUI::FileKind::regular) continue;
        sizes_.push_back(static_cast<std::size_t>(status->size));
        bytes_ += sizes_.back();
        items_.push_back(std::move(item));
    }
}

std::vector<Derive::Text> CodeSample::sample(std::size_t bytes) {
    std::vector<Derive::Text> texts;
    const double share = bytes_ > bytes ? static_cast<double>(bytes) / static_cast<double>(bytes_) : 1.0;
    // A file is taken whenever what was taken lags behind its share of what was passed.
    std::size_t passed = 0;
    std::size_t taken = 0;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        passed += sizes_[i];
        if (static_cast<double>(taken) >= share * static_cast<double>(passed)) continue;
        taken += sizes_[i];
        texts.push_back(read(items_[i]));
    }
    return texts;
}

std::vector<Derive::Text> CodeSample::nextBatch(std::size_t& first) {
    constexpr std::size_t kBatch = 1 << 20;
    std::vector<Derive::Text> texts;
    for (std::size_t size = 0; first < items_.size() && size < kBatch; ++first) {
        size += sizes_[first];
        texts.push_back(read(items_[first]));
    }
    return texts;
}

Derive::Text CodeSample::read(const WorkItem& item) {
    const auto bytes = disk_.read(item.path);
    if (!bytes) {
        report_.error({item.path}, bytes.failure().text, ExitStatus::fileFailed);
        return {item.path, {}};
    }
    return {item.path, Addin::SourceForm(*bytes).textOf(*bytes)};
}

} // namespace Cli
