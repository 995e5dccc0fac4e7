// What the named styles of a source come to.
#pragma once

#include <map>
#include <string>

#include "base/suggestion.h"
#include "source/form_source.h"

namespace velform {

class StyleResolver {
public:
    // Both live as long as the resolver. Works out all styles, also those that nothing uses, so
    // that what is wrong with them is reported.
    StyleResolver(const FormSource &source, Diagnostics &diagnostics);

    // What an object says by itself and by its styles.
    Settings resolve(const Block &block);

    // Whether a style is missing that a resolved block uses, also through other styles. What it
    // would have said is not known then.
    bool lacks_style(const Block &block) const;

private:
    struct Resolved {
        Settings settings;
        bool lacks_style = false;
        bool is_finished = false;
    };
    const Settings &resolve_style(const StyleUse &use);

    const FormSource &source_;
    Diagnostics &diagnostics_;
    std::map<std::string, Resolved, std::less<>> resolved_;
    Suggestions names_;
    int depth_ = 0;
};

} // namespace velform
