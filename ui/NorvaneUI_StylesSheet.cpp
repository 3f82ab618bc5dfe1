#include "ui/NorvaneUI_StylesSheet.h"

#include "addin/Addin_SourceForm.h"
#include "files/NorvaneUI_Text.h"
#include "ui/NorvaneUI_PreviewSamples.h"
#include "ui/NorvaneUI_Texts.h"

namespace NorvaneUI {

namespace {

constexpr const char* kShowPreviewSetting = "ShowPreview";
constexpr const char* kPageSetting = "CurrentSchemesTab";

} // namespace

StylesSheet::StylesSheet(DialogFace& face, NorvaneUI::FileSystem& files, Addin::Settings& settings)
    : face_(face), files_(files), settings_(settings), pages_(makePages()) {
    for (const auto& page : pages_) {
        page->setPreviewAction([this] {
            refreshPreview();
            if (changeAction_) changeAction_();
        });
    }
    readState();
    refreshPreview();
}

void StylesSheet::readState() {
    int page = 0;
    settings_.getInt(kPageSetting, page);
    const bool isPage = page >= 0 && static_cast<std::size_t>(page) < pages_.size();
    current_ = isPage ? static_cast<PageId>(page) : PageId::Globals;
    settings_.getBool(kShowPreviewSetting, previewShown_);
}

void StylesSheet::storeState() {
    settings_.setInt(kPageSetting, static_cast<int>(current_));
    settings_.setBool(kShowPreviewSetting, previewShown_);
}

void StylesSheet::show(SchemeEdit* scheme) {
    if (scheme_ != nullptr) scheme_->endTyping();
    scheme_ = scheme;
    for (const auto& page : pages_) page->show(scheme);
    preview_.forgetLastChange();
    refreshPreview();
}

void StylesSheet::reload() {
    for (const auto& page : pages_) page->reload();
    refreshPreview();
    if (changeAction_) changeAction_();
}

bool StylesSheet::selectPage(PageId id) {
    if (id == current_) return true;
    if (!check()) return false;
    currentPage().endTyping();
    current_ = id;
    // Another page may have changed what this one shows.
    currentPage().reload();
    preview_.forgetLastChange();
    refreshPreview();
    return true;
}

bool StylesSheet::selectOption(std::string_view option) {
    const OptionHome home = homeOf(option);
    if (home.page == nullptr || !selectPage(home.page->id)) return false;
    face_.setFocus(option);
    return true;
}

void StylesSheet::undo() {
    if (scheme_ != nullptr) afterStep(scheme_->undo());
}

void StylesSheet::redo() {
    if (scheme_ != nullptr) afterStep(scheme_->redo());
}

void StylesSheet::afterStep(const std::string& option) {
    if (option.empty()) return;
    // The step has taken back what could be wrong on this page, so there is nothing to check.
    const OptionHome home = homeOf(option);
    if (home.page != nullptr && home.page->id != current_) {
        current_ = home.page->id;
        preview_.forgetLastChange();
    }
    reload();
}

void StylesSheet::refreshPreview() {
    const std::optional<std::string_view> sample = previewSample(currentPage().previewName());
    if (currentPage().doNotFormat()) return preview_.showNote(Texts::kLeftAsIs);
    if (scheme_ == nullptr || (!sample && ownTextPath_.empty())) return preview_.showNote(Texts::kNoPreview);
    if (!previewShown_) return;
    PreviewJob job = preview_.start(scheme_->scheme(), ownTextPath_.empty() ? *sample : ownText_);
    if (previewAction_) previewAction_(std::move(job));
    else preview_.finish(runPreview(job));
}

void StylesSheet::togglePreview() {
    previewShown_ = !previewShown_;
    preview_.forgetLastChange();
    refreshPreview();
}

std::string StylesSheet::previewButtonText() const {
    return std::string(previewShown_ ? Texts::kHidePreview : Texts::kShowPreview);
}

void StylesSheet::chooseOwnText() {
    if (const auto path = face_.chooseFile()) useOwnText(*path);
}

bool StylesSheet::useOwnText(const std::string& path) {
    const std::optional<std::string> text = readSource(path);
    if (!text) return false;
    ownTextPath_ = path;
    ownText_ = *text;
    refreshPreview();
    return true;
}

std::optional<std::string> StylesSheet::readSource(const std::string& path) {
    const auto bytes = files_.read(path);
    if (!bytes) {
        face_.notify(filled(Texts::kTextUnreadable, {path}));
        return std::nullopt;
    }
    const bool isWide = bytes->starts_with("\xff\xfe") || bytes->starts_with("\xfe\xff");
    if (isWide || bytes->find('\0') != std::string::npos) {
        face_.notify(filled(Texts::kTextNoSource, {path}));
        return std::nullopt;
    }
    return Addin::SourceForm(*bytes).textOf(*bytes);
}

void StylesSheet::dropOwnText() {
    ownTextPath_.clear();
    ownText_.clear();
    refreshPreview();
}

} // namespace NorvaneUI
