// WsFontEx: the exceptions of fonts: a description that doesn't parse, a font that can't be
// found or loaded.
#pragma once

#include "exBase.h"

#include <string>

namespace Zr {

class WsFontEx : public ExBase {
public:
    WsFontEx(char const* file, int line) : ExBase(file, line) {}
    char const* getClassName() const override { return "WsFontEx"; }
    std::unique_ptr<ExBase> clone() const override { return std::make_unique<WsFontEx>(*this); }
    [[noreturn]] void raise() const override { throw *this; }

    class ExBadDescription;
    class ExNotFound;
};

// "Bad font description \"<text>\": <why>".
class WsFontEx::ExBadDescription : public WsFontEx {
public:
    ExBadDescription(char const* file, int line, std::string const& text, std::string const& why)
        : WsFontEx(file, line) {
        setReason("Bad font description \"" + text + "\": " + why);
    }
    char const* getClassName() const override { return "WsFontEx::ExBadDescription"; }
    std::unique_ptr<ExBase> clone() const override {
        return std::make_unique<ExBadDescription>(*this);
    }
    [[noreturn]] void raise() const override { throw *this; }
};

// "Cannot load font \"<description>\": <why>".
class WsFontEx::ExNotFound : public WsFontEx {
public:
    ExNotFound(char const* file, int line, std::string const& text, std::string const& why)
        : WsFontEx(file, line) {
        setReason("Cannot load font \"" + text + "\": " + why);
    }
    char const* getClassName() const override { return "WsFontEx::ExNotFound"; }
    std::unique_ptr<ExBase> clone() const override { return std::make_unique<ExNotFound>(*this); }
    [[noreturn]] void raise() const override { throw *this; }
};

} // namespace Zr
