#include "addin/Addin_Settings.h"

#include "addin/Addin_Host.h"
#include "addin/Addin_SettingsText.h"
#include "addin/Addin_Texts.h"
#include "files/Zelmar_Trace.h"

#include <charconv>

namespace Addin {

namespace {

using NorvaneUI::FileKind;
using NorvaneUI::FileStatus;

void chooseScheme(const NorvaneUI::PropertySetStore& store, const std::vector<Norvane::PropertySet>& shipped,
                  SchemeChoice& choice) {
    choice.scheme.reset();
    if (choice.name.empty()) return;
    for (const Norvane::PropertySet& scheme : shipped) {
        if (scheme.getName() == choice.name) choice.scheme = scheme;
    }
    if (store.count(choice.name) != 0) choice.scheme = store.find(choice.name)->second.scheme;
}

void tellOutcome(Host& host, Settings::Outcome outcome) {
    if (outcome == Settings::Outcome::notOpened) host.notify(std::string(Texts::kSettingsNotOpened));
    if (outcome == Settings::Outcome::notCreated) host.notify(std::string(Texts::kSettingsNotCreated));
}

} // namespace

Settings::Settings(NorvaneUI::FileSystem& fileSystem, std::string path)
    : fileSystem_(fileSystem), path_(std::move(path)) {}

Settings::Outcome Settings::load(FileStatus& status, std::string& text) {
    const auto found = fileSystem_.status(path_);
    if (!found) return Outcome::notOpened;
    status = *found;
    if (status.kind == FileKind::missing) return Outcome::done;
    const auto read = fileSystem_.read(path_);
    if (!read) return Outcome::notOpened;
    text = *read;
    return Outcome::done;
}

Settings::Outcome Settings::read() {
    FileStatus status;
    text_.clear();
    return load(status, text_);
}

std::optional<std::string> Settings::value(const std::string& name) const {
    const auto edit = edits_.find(name);
    if (edit != edits_.end()) return edit->second;
    return SettingsText(text_).value(name);
}

void Settings::getString(const std::string& name, std::string& value) const {
    if (const auto found = this->value(name)) value = *found;
}

void Settings::getBool(const std::string& name, bool& value) const {
    const auto found = this->value(name);
    if (found == "1") value = true;
    if (found == "0") value = false;
}

void Settings::getInt(const std::string& name, int& value) const {
    const auto found = this->value(name);
    if (!found) return;
    const char* end = found->data() + found->size();
    int number = 0;
    const auto [rest, error] = std::from_chars(found->data(), end, number);
    if (error == std::errc() && rest == end) value = number;
}

Settings::Outcome Settings::commit() {
    if (edits_.empty()) return Outcome::done;
    FileStatus status;
    std::string old;
    const Outcome loaded = load(status, old);
    // Without its text, the file would be replaced by our lines alone.
    if (loaded != Outcome::done) return loaded;
    SettingsText text(old);
    for (const auto& [name, value] : edits_) text.setValue(name, value);
    const bool isNew = status.kind == FileKind::missing;
    if (isNew && create(text.text()) != Outcome::done) return Outcome::notCreated;
    if (!isNew && text.text() != old && !fileSystem_.replace(path_, text.text(), status).isDone()) {
        return Outcome::notOpened;
    }
    text_ = text.text();
    edits_.clear();
    return Outcome::done;
}

Settings::Outcome Settings::create(const std::string& text) {
    const std::size_t separator = path_.rfind('/');
    const bool inFolder = separator != std::string::npos && separator > 0;
    if (inFolder && !fileSystem_.makeFolders(path_.substr(0, separator)).isDone()) return Outcome::notCreated;
    return fileSystem_.create(path_, text).isDone() ? Outcome::done : Outcome::notCreated;
}

void chooseSchemes(const NorvaneUI::PropertySetStore& store, const std::vector<Norvane::PropertySet>& shipped,
                   AddInOptions& options) {
    for (SchemeChoice* choice : {&options.onFormat, &options.onOpen, &options.onClose}) {
        chooseScheme(store, shipped, *choice);
    }
}

void ReadRegOptions(Host& host, Settings& settings, const NorvaneUI::PropertySetStore& store,
                    AddInOptions& options) {
    const Zelmar::Trace trace("ReadRegOptions");
    tellOutcome(host, settings.read());
    options = AddInOptions();
    settings.getString("OnFormat", options.onFormat.name);
    settings.getString("OnOpen", options.onOpen.name);
    settings.getString("OnClose", options.onClose.name);
    settings.getString("FileExtensions", options.fileExtensions);
    settings.getString("BackupExtension", options.backupExtension);
    settings.getBool("CreateBackups", options.createBackups);
    settings.getBool("PromptUnsaved", options.promptUnsaved);
    settings.getInt("MessagesThreshold", options.messagesThreshold);
    chooseSchemes(store, {}, options);
}

void WriteRegOptions(Host& host, Settings& settings, const AddInOptions& before, const AddInOptions& options) {
    const Zelmar::Trace trace("WriteRegOptions");
    const auto setString = [&](const char* name, const std::string& old, const std::string& value) {
        if (value != old) settings.setString(name, value);
    };
    const auto setBool = [&](const char* name, bool old, bool value) {
        if (value != old) settings.setBool(name, value);
    };
    setString("OnFormat", before.onFormat.name, options.onFormat.name);
    setString("OnOpen", before.onOpen.name, options.onOpen.name);
    setString("OnClose", before.onClose.name, options.onClose.name);
    setString("FileExtensions", before.fileExtensions, options.fileExtensions);
    setString("BackupExtension", before.backupExtension, options.backupExtension);
    setBool("CreateBackups", before.createBackups, options.createBackups);
    setBool("PromptUnsaved", before.promptUnsaved, options.promptUnsaved);
    if (options.messagesThreshold != before.messagesThreshold) {
        settings.setInt("MessagesThreshold", options.messagesThreshold);
    }
    tellOutcome(host, settings.commit());
}

} // namespace Addin
