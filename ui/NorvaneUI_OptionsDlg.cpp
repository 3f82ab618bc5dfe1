#include "ui/NorvaneUI_OptionsDlg.h"

#include "addin/Addin_Extensions.h"
#include "addin/Addin_Texts.h"
#include "schemes/NorvaneUI_SchemeName.h"
#include "ui/NorvaneUI_Texts.h"

#include <algorithm>
#include <iterator>

namespace NorvaneUI {

void OptionsDlg::take(const Addin::AddInOptions& options, const PropertySetStore::SchemeMap& known) {
    schemes = known;
    onFormat = options.onFormat.name;
    onOpen = options.onOpen.name;
    onClose = options.onClose.name;
    fileExtensions = options.fileExtensions;
    promptUnsaved = options.promptUnsaved;
    createBackups = options.createBackups;
    backupExtension = options.backupExtension;
    messagesThreshold = options.messagesThreshold;
}

void OptionsDlg::giveTo(Addin::AddInOptions& options) const {
    options.onFormat.name = onFormat;
    options.onOpen.name = onOpen;
    options.onClose.name = onClose;
    options.fileExtensions = fileExtensions;
    options.promptUnsaved = promptUnsaved;
    options.createBackups = createBackups;
    options.backupExtension = backupExtension;
    options.messagesThreshold = messagesThreshold;
}

void OptionsDlg::open() {
    makeSchemeItems();
    onFormat_ = onFormat;
    onOpen_ = onOpen;
    onClose_ = onClose;
    fileExtensions_ = fileExtensions;
    promptUnsaved_ = promptUnsaved;
    backupExtension_ = backupExtension;
    messagesThreshold_ = messagesThreshold;
    checkCreateBackups(createBackups);
}

void OptionsDlg::makeSchemeItems() {
    schemeItems_ = {{std::string(kNoFormatting), {}}};
    for (const auto& [name, entry] : schemes) schemeItems_.push_back({name, name});
    for (const std::string& name : shipped) {
        if (!isListed(name)) schemeItems_.push_back({name + std::string(Texts::kShipped), name});
    }
}

bool OptionsDlg::isListed(const std::string& name) const {
    return std::any_of(schemeItems_.begin(), schemeItems_.end(),
                       [&](const SchemeItem& item) { return item.name == name; });
}

void OptionsDlg::changeSchemes(const PropertySetStore::SchemeMap& known) {
    schemes = known;
    makeSchemeItems();
}

void OptionsDlg::renameScheme(const std::string& before, const std::string& after) {
    for (std::string* name : {&onFormat, &onOpen, &onClose, &onFormat_, &onOpen_, &onClose_}) {
        if (*name == before) *name = after;
    }
}

void OptionsDlg::removeScheme(const std::string& name) {
    if (isListed(name)) return;
    for (std::string* choice : {&onFormat, &onOpen, &onClose, &onFormat_, &onOpen_, &onClose_}) {
        if (*choice == name) choice->clear();
    }
}

const std::string& OptionsDlg::chosenName(Action action) const {
    switch (action) {
    case Action::Format: return onFormat_;
    case Action::Open: return onOpen_;
    case Action::Close: break;
    }
    return onClose_;
}

std::string& OptionsDlg::chosenName(Action action) {
    return const_cast<std::string&>(std::as_const(*this).chosenName(action));
}

std::size_t OptionsDlg::chosenScheme(Action action) const {
    const auto isChosen = [&](const SchemeItem& item) { return item.name == chosenName(action); };
    const auto found = std::find_if(schemeItems_.begin(), schemeItems_.end(), isChosen);
    return found == schemeItems_.end() ? 0 : static_cast<std::size_t>(found - schemeItems_.begin());
}

std::vector<std::string> OptionsDlg::thresholdItems() {
    return {std::begin(Addin::Texts::kThresholds), std::end(Addin::Texts::kThresholds)};
}

std::size_t OptionsDlg::chosenThreshold() const {
    constexpr int count = static_cast<int>(std::size(Addin::Texts::kThresholds));
    // One that has no name acts most like the item that lets every message pass.
    constexpr std::size_t everything = 1;
    const bool isItem = messagesThreshold_ >= 0 && messagesThreshold_ < count;
    return isItem ? static_cast<std::size_t>(messagesThreshold_) : everything;
}

void OptionsDlg::chooseScheme(Action action, std::size_t item) {
    if (item < schemeItems_.size()) chosenName(action) = schemeItems_[item].name;
}

void OptionsDlg::chooseThreshold(std::size_t item) {
    if (item < std::size(Addin::Texts::kThresholds)) messagesThreshold_ = static_cast<int>(item);
}

void OptionsDlg::checkCreateBackups(bool on) {
    createBackups_ = on;
    backupExtensionEnabled_ = on;
}

bool OptionsDlg::isModified() const {
    return onFormat != onFormat_ || onOpen != onOpen_ || onClose != onClose_ || fileExtensions != fileExtensions_ ||
           promptUnsaved != promptUnsaved_ || createBackups != createBackups_ ||
           backupExtension != backupExtension_ || messagesThreshold != messagesThreshold_;
}

bool OptionsDlg::check(DialogFace& face) {
    backupExtensionEnabled_ = createBackups_;
    // None of the characters that separate extensions is one that an extension must not hold, so
    // all of them pass if the list passes as a whole.
    if (!Addin::isValidExtension(fileExtensions_)) return refuseExtension(face, "fileExtensions");
    if (!Addin::isValidExtension(backupExtension_)) {
        // The user must be able to get there, whether backups are made or not.
        backupExtensionEnabled_ = true;
        return refuseExtension(face, "backupExtension");
    }
    return true;
}

bool OptionsDlg::accept(DialogFace& face) {
    if (!check(face)) return false;
    commit();
    return true;
}

void OptionsDlg::commit() {
    onFormat = onFormat_;
    onOpen = onOpen_;
    onClose = onClose_;
    fileExtensions = fileExtensions_;
    promptUnsaved = promptUnsaved_;
    createBackups = createBackups_;
    backupExtension = backupExtension_;
    messagesThreshold = messagesThreshold_;
}

bool OptionsDlg::refuseExtension(DialogFace& face, std::string_view control) const {
    face.notify(std::string(Texts::kBadExtension));
    face.setFocus(control);
    return false;
}

} // namespace NorvaneUI
