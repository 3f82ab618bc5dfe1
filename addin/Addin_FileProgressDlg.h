#ifndef KERFLINE_ADDIN_FILEPROGRESSDLG_H
#define KERFLINE_ADDIN_FILEPROGRESSDLG_H

#include "files/NorvaneUI_Text.h"
#include "src/Norvane_UpdateFunctor.h"

#include <string>
#include <utility>

namespace Addin {

/// The progress of a run, and the wish to end it. Closes itself when it is destroyed.
class FileProgressDlg {
public:
    /// What a formatting run reports to: shows each step under the name of the item.
    class UpdateFunction : public Norvane::UpdateFunctor {
    public:
        /// `dialog` may be null, and is not owned.
        UpdateFunction(FileProgressDlg* dialog, std::string name) : dialog_(dialog), name_(std::move(name)) {}

        /// False without a dialog, or after a cancel.
        bool operator()(const std::string& format) override {
            if (dialog_ == nullptr || dialog_->cancelled()) return false;
            dialog_->show(NorvaneUI::filled(format, {name_}));
            dialog_->step();
            return true;
        }

    private:
        FileProgressDlg* dialog_;
        std::string name_;
    };

    /// What one file adds to the bar: opening, analyzing, formatting, writing, completed.
    static constexpr int kStepsPerFile = 5;

    virtual ~FileProgressDlg() = default;

    virtual void show(const std::string& text) = 0;
    /// Sets the bar, counted in steps.
    virtual void set(int steps) = 0;
    virtual void step() = 0;
    virtual bool cancelled() const = 0;
};

} // namespace Addin

#endif
