#ifndef KERFLINE_ADDIN_ADDIN_H
#define KERFLINE_ADDIN_ADDIN_H

#include "addin/Addin_BatchFormatter.h"
#include "addin/Addin_Host.h"
#include "addin/Addin_Settings.h"

#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace Addin {

/// The five commands.
class IKerfline {
public:
    virtual ~IKerfline() = default;
    virtual void FormatActiveDocument() = 0;
    virtual void FormatActiveProject() = 0;
    virtual void FormatActiveWorkspace() = 0;
    virtual void ShowKLOptions() = 0;
    virtual void ShowKLHelp() = 0;
};

/// Kerfline inside a host: reads schemes and settings when it is connected, and from then on does
/// what commands and document events ask for.
///
/// No exception leaves an entry point. While one runs, what the host's pump lets in is refused: a
/// document must not change under the formatting of itself.
class AddIn : public IKerfline, public EventSink {
public:
    /// Both outlive the add-in.
    AddIn(Host& host, NorvaneUI::FileSystem& files);
    AddIn(const AddIn&) = delete;
    AddIn& operator=(const AddIn&) = delete;
    ~AddIn() override;

    /// Where something fails here, the user is told and the rest goes on.
    void OnConnection();
    /// Writes nothing: settings are written when the user has edited them.
    void OnDisconnection();

    void FormatActiveDocument() override;
    void FormatActiveProject() override;
    void FormatActiveWorkspace() override;
    void ShowKLOptions() override;
    void ShowKLHelp() override;

    void DocumentOpen(Document document) override;
    void BeforeDocumentClose(Document document) override;

    /// For hosts that check a result before it is written. None at first.
    void setGate(Gate gate) { bench_.gate = std::move(gate); }

    /// Schemes that are part of the program, to be chosen like those of the user. None at first; for
    /// the time before the connection.
    void setShippedSchemes(std::vector<Norvane::PropertySet> schemes) { shipped_ = std::move(schemes); }

    const AddInOptions& options() const { return options_; }
    NorvaneUI::PropertySetStore& schemes() { return schemes_; }

private:
    void enter(std::string_view name, const std::function<void()>& action);
    void attempt(const std::function<void()>& action);
    void readSchemes();
    void convertSchemes();
    void registerCommands();
    const Norvane::PropertySet* schemeOfCommands();
    void formatOnEvent(std::string_view what, const SchemeChoice& choice, Document document);
    void formatDocument(Document document, const Norvane::PropertySet& scheme, Occasion occasion);
    void takeOver(const AddInOptions& edited);

    Host& host_;
    AddInOptions options_;
    Workbench bench_;
    Messages messages_;
    NorvaneUI::PropertySetStore schemes_;
    Settings settings_;
    std::vector<Norvane::PropertySet> shipped_;
    bool connected_ = false;
    bool running_ = false;
};

} // namespace Addin

#endif
