// UiResourceEx: the exceptions of reading and using resources, with the nested families of the
// table reader (UiResTableEx), colours, fonts, frames, coordinates and constraints.
#pragma once

#include "exBase.h"
#include "liString.h"

#include <string>

namespace Zr {

class XmlElement;

// Gives a hand-written exception class its name, clone and raise.
#define ZR_UI_EXCEPTION_BODY(Name, Text)                                                           \
    char const* getClassName() const override {                                                    \
        return Text;                                                                               \
    }                                                                                              \
    std::unique_ptr<::Zr::ExBase> clone() const override {                                         \
        return std::make_unique<Name>(*this);                                                      \
    }                                                                                              \
    [[noreturn]] void raise() const override {                                                     \
        throw *this;                                                                               \
    }

class UiResourceEx : public ExBase {
public:
    UiResourceEx(char const* file, int line) : ExBase(file, line) {}
    ZR_UI_EXCEPTION_BODY(UiResourceEx, "UiResourceEx")

    class ExIncompleteResource;
    class ExInvalidStream;
    class ExBadNumber;
    class UiResTableEx;
    class UiColorEx;
    class UiInvalidFontEx;
    class UiInvalidFrameEx;
    class UiResCoordEx;
    class UiConstraintEx;
};

class UiResourceEx::ExIncompleteResource : public UiResourceEx {
public:
    // "Error, unexpected end of resource specification."
    ExIncompleteResource(char const* file, int line);
    // Names the resource by the element's Name attribute (empty for a resource's name element).
    ExIncompleteResource(char const* file, int line, XmlElement const& element);
    ZR_UI_EXCEPTION_BODY(ExIncompleteResource, "UiResourceEx::ExIncompleteResource")
};

class UiResourceEx::ExInvalidStream : public UiResourceEx {
public:
    ExInvalidStream(char const* file, int line);
    ZR_UI_EXCEPTION_BODY(ExInvalidStream, "UiResourceEx::ExInvalidStream")
};

// A number of a resource that is not wholly a number, or lies outside the range the resource
// allows: "Bad number "12abc" for Int: not a number." or "Bad number "300" for component R:
// not between 0 and 255.".
class UiResourceEx::ExBadNumber : public UiResourceEx {
public:
    // `what` names the number for the user ("component R", "coordinate W"); an empty `range`
    // says the text is not a number at all.
    ExBadNumber(char const* file, int line, std::string const& what, std::string const& text,
                std::string const& range = {});
    ZR_UI_EXCEPTION_BODY(ExBadNumber, "UiResourceEx::ExBadNumber")
};

// Errors of the table reader. The forms with `where` say what is missing in which place; the
// forms with names say for which widget and resource.
class UiResourceEx::UiResTableEx : public UiResourceEx {
public:
    UiResTableEx(char const* file, int line, char const* what, char const* where);
    ZR_UI_EXCEPTION_BODY(UiResTableEx, "UiResourceEx::UiResTableEx")

    class ExNoWidget;
    class ExNoType;
    class ExUnknownType;
    class ExNoName;
    class ExNoParameters;

protected:
    // For subclasses that set a reason of their own.
    UiResTableEx(char const* file, int line) : UiResourceEx(file, line) {}
};

class UiResourceEx::UiResTableEx::ExNoWidget : public UiResourceEx::UiResTableEx {
public:
    ExNoWidget(char const* file, int line, char const* where);
    // "Widget without a name attribute."
    ExNoWidget(char const* file, int line);
    ZR_UI_EXCEPTION_BODY(ExNoWidget, "UiResourceEx::UiResTableEx::ExNoWidget")
};

class UiResourceEx::UiResTableEx::ExNoType : public UiResourceEx::UiResTableEx {
public:
    ExNoType(char const* file, int line, char const* where);
    ExNoType(char const* file, int line, LiString const& widget, LiString const& resource);
    ZR_UI_EXCEPTION_BODY(ExNoType, "UiResourceEx::UiResTableEx::ExNoType")
};

class UiResourceEx::UiResTableEx::ExUnknownType : public UiResourceEx::UiResTableEx {
public:
    ExUnknownType(char const* file, int line, char const* where);
    ExUnknownType(char const* file, int line, LiString const& widget, LiString const& resource);
    ZR_UI_EXCEPTION_BODY(ExUnknownType, "UiResourceEx::UiResTableEx::ExUnknownType")
};

class UiResourceEx::UiResTableEx::ExNoName : public UiResourceEx::UiResTableEx {
public:
    ExNoName(char const* file, int line, char const* where);
    // The reader passes the element kind ("FontDefinition") as the name.
    ExNoName(char const* file, int line, LiString const& name);
    ZR_UI_EXCEPTION_BODY(ExNoName, "UiResourceEx::UiResTableEx::ExNoName")
};

class UiResourceEx::UiResTableEx::ExNoParameters : public UiResourceEx::UiResTableEx {
public:
    ExNoParameters(char const* file, int line, char const* where);
    ExNoParameters(char const* file, int line, LiString const& name);
    ZR_UI_EXCEPTION_BODY(ExNoParameters, "UiResourceEx::UiResTableEx::ExNoParameters")
};

class UiResourceEx::UiColorEx : public UiResourceEx {
public:
    UiColorEx(char const* file, int line) : UiResourceEx(file, line) {}
    ZR_UI_EXCEPTION_BODY(UiColorEx, "UiResourceEx::UiColorEx")
    class ExUnknownType;
};

class UiResourceEx::UiColorEx::ExUnknownType : public UiResourceEx::UiColorEx {
public:
    ExUnknownType(char const* file, int line, LiString const& name);
    ZR_UI_EXCEPTION_BODY(ExUnknownType, "UiResourceEx::UiColorEx::ExUnknownType")
};

class UiResourceEx::UiInvalidFontEx : public UiResourceEx {
public:
    UiInvalidFontEx(char const* file, int line, LiString const& handle);
    ZR_UI_EXCEPTION_BODY(UiInvalidFontEx, "UiResourceEx::UiInvalidFontEx")
};

class UiResourceEx::UiInvalidFrameEx : public UiResourceEx {
public:
    UiInvalidFrameEx(char const* file, int line, LiString const& name);
    ZR_UI_EXCEPTION_BODY(UiInvalidFrameEx, "UiResourceEx::UiInvalidFrameEx")
};

// The common base of coordinate errors; it has no text of its own.
class UiResourceEx::UiResCoordEx : public UiResourceEx {
public:
    UiResCoordEx(char const* file, int line) : UiResourceEx(file, line) {}
    ZR_UI_EXCEPTION_BODY(UiResCoordEx, "UiResourceEx::UiResCoordEx")
};

class UiResourceEx::UiConstraintEx : public UiResourceEx {
public:
    UiConstraintEx(char const* file, int line) : UiResourceEx(file, line) {}
    ZR_UI_EXCEPTION_BODY(UiConstraintEx, "UiResourceEx::UiConstraintEx")

    class ExUninitialized;
    class ExBaseDimension;
    class ExUnknownType;
    class ExUnknownTarget;
};

class UiResourceEx::UiConstraintEx::ExUninitialized : public UiResourceEx::UiConstraintEx {
public:
    ExUninitialized(char const* file, int line);
    ZR_UI_EXCEPTION_BODY(ExUninitialized, "UiResourceEx::UiConstraintEx::ExUninitialized")
};

class UiResourceEx::UiConstraintEx::ExBaseDimension : public UiResourceEx::UiConstraintEx {
public:
    ExBaseDimension(char const* file, int line);
    ZR_UI_EXCEPTION_BODY(ExBaseDimension, "UiResourceEx::UiConstraintEx::ExBaseDimension")
};

class UiResourceEx::UiConstraintEx::ExUnknownType : public UiResourceEx::UiConstraintEx {
public:
    ExUnknownType(char const* file, int line, std::string const& keyword);
    // `lineEnd` is what followed the keyword on its line, to find the place in a long text.
    ExUnknownType(char const* file, int line, std::string const& keyword,
                  std::string const& lineEnd);
    ZR_UI_EXCEPTION_BODY(ExUnknownType, "UiResourceEx::UiConstraintEx::ExUnknownType")
};

class UiResourceEx::UiConstraintEx::ExUnknownTarget : public UiResourceEx::UiConstraintEx {
public:
    ExUnknownTarget(char const* file, int line, std::string const& keyword);
    ExUnknownTarget(char const* file, int line, std::string const& keyword,
                    std::string const& lineEnd);
    ZR_UI_EXCEPTION_BODY(ExUnknownTarget, "UiResourceEx::UiConstraintEx::ExUnknownTarget")
};

} // namespace Zr
