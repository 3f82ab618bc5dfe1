#ifndef KERFLINE_NORVANEUI_STYLESSHEET_H
#define KERFLINE_NORVANEUI_STYLESSHEET_H

#include "addin/Addin_Settings.h"
#include "files/NorvaneUI_FileSystem.h"
#include "ui/NorvaneUI_DialogFace.h"
#include "ui/NorvaneUI_Pages.h"
#include "ui/NorvaneUI_ReadOnlyEdit.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace NorvaneUI {

/// The sheet of pages that edits one scheme at a time, with its preview.
///
/// The preview shows the sample of the current page, or a text of the user's own, formatted with the
/// scheme as it is. A window gives the sheet an action that runs its jobs:
///
///     sheet.setPreviewAction([&](PreviewJob job) { ... on a worker: runPreview(job) ...
///                                                  ... back here: sheet.finishPreview(result) });
///
/// Without an action of its own the sheet runs them at once.
class StylesSheet {
public:
    using PreviewAction = std::function<void(PreviewJob)>;

    /// All three outlive the sheet. `settings` must have been read.
    StylesSheet(DialogFace& face, NorvaneUI::FileSystem& files, Addin::Settings& settings);
    StylesSheet(const StylesSheet&) = delete;
    StylesSheet& operator=(const StylesSheet&) = delete;

    /// Shows another scheme, on the same page. Null: none. It must outlive its being shown.
    void show(SchemeEdit* scheme);
    SchemeEdit* scheme() { return scheme_; }
    /// Shows the scheme again after it was changed behind the pages.
    void reload();
    /// Called after each change of the scheme, for a title that tells of it.
    void setChangeAction(std::function<void()> action) { changeAction_ = std::move(action); }

    const std::vector<std::unique_ptr<StylesBasePage>>& pages() const { return pages_; }
    StylesBasePage& page(PageId id) { return *pages_[static_cast<std::size_t>(id)]; }
    StylesBasePage& currentPage() { return page(current_); }
    PageId currentPageId() const { return current_; }
    /// Goes to another page, unless an entry on this one is no value: then the user is told, the
    /// focus stays, and the result is false.
    bool selectPage(PageId id);
    /// The same, to the control of an option. False for an option without a control, too.
    bool selectOption(std::string_view option);
    /// Asked before the scheme or the dialog is left.
    bool check() { return currentPage().check(face_); }

    bool canUndo() const { return scheme_ != nullptr && scheme_->canUndo(); }
    bool canRedo() const { return scheme_ != nullptr && scheme_->canRedo(); }
    /// Each takes one step and goes to the page that it is about.
    void undo();
    void redo();

    // Preview.
    void setPreviewAction(PreviewAction action) { previewAction_ = std::move(action); }
    /// False, and nothing changes, for the result of an old job.
    bool finishPreview(const PreviewResult& result) { return preview_.finish(result); }
    const ReadOnlyEdit& preview() const { return preview_; }
    void refreshPreview();
    bool isPreviewShown() const { return previewShown_; }
    void togglePreview();
    std::string previewButtonText() const;
    /// Asks for a file and previews it on all pages from then on. Tells the user if it is no text.
    void chooseOwnText();
    bool useOwnText(const std::string& path);
    /// Back to the samples.
    void dropOwnText();
    /// Empty: the samples are shown.
    const std::string& ownTextPath() const { return ownTextPath_; }

    /// Which page is shown, and whether the preview is, for the next time.
    void storeState();

private:
    void readState();
    void afterStep(const std::string& option);
    std::optional<std::string> readSource(const std::string& path);

    DialogFace& face_;
    NorvaneUI::FileSystem& files_;
    Addin::Settings& settings_;
    std::vector<std::unique_ptr<StylesBasePage>> pages_;
    PreviewAction previewAction_;
    std::function<void()> changeAction_;
    // Not owned.
    SchemeEdit* scheme_ = nullptr;
    PageId current_ = PageId::Globals;
    ReadOnlyEdit preview_;
    bool previewShown_ = true;
    std::string ownTextPath_;
    std::string ownText_;
};

} // namespace NorvaneUI

#endif
