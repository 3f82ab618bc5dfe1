#ifndef KERFLINE_NORVANE_UPDATEFUNCTOR_H
#define KERFLINE_NORVANE_UPDATEFUNCTOR_H

#include <string>

namespace Norvane {

/// Told of the progress of a run, and asked whether to go on. This one shows nothing and never
/// stops.
class UpdateFunctor {
public:
    virtual ~UpdateFunctor() = default;

    /// `format` says what comes next and holds one "%s" for the name of the text. False stops.
    virtual bool operator()(const std::string& /*format*/) { return true; }
};

} // namespace Norvane

#endif
