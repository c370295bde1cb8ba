// The reason texts of the resource exceptions.
#include "uiResourceEx.h"

#include "xmlElement.h"

namespace Zr {

namespace {
std::string tableText(char const* what, char const* where) {
    return std::string("Resource Table parsing error - ") + what + " in \"" + (where ? where : "") +
           "\"";
}
std::string lineEndText(std::string const& lineEnd) {
    return " (line ends with \"" + lineEnd + "\")";
}
} // namespace

UiResourceEx::ExIncompleteResource::ExIncompleteResource(char const* file, int line)
    : UiResourceEx(file, line) {
    setReason("Error, unexpected end of resource specification.");
}

UiResourceEx::ExIncompleteResource::ExIncompleteResource(char const* file, int line,
                                                         XmlElement const& element)
    : UiResourceEx(file, line) {
    setReason("Error, wrong resource specification for resource '" + element.getAttribute("Name") +
              "'.");
}

UiResourceEx::ExInvalidStream::ExInvalidStream(char const* file, int line)
    : UiResourceEx(file, line) {
    setReason("Error, specified stream invalid");
}

UiResourceEx::ExBadNumber::ExBadNumber(char const* file, int line, std::string const& what,
                                       std::string const& text, std::string const& range)
    : UiResourceEx(file, line) {
    setReason("Bad number \"" + text + "\" for " + what + ": " +
              (range.empty() ? std::string("not a number.") : "not between " + range + "."));
}

UiResourceEx::UiResTableEx::UiResTableEx(char const* file, int line, char const* what,
                                         char const* where)
    : UiResourceEx(file, line) {
    setReason(tableText(what, where));
}

UiResourceEx::UiResTableEx::ExNoWidget::ExNoWidget(char const* file, int line, char const* where)
    : UiResTableEx(file, line) {
    setReason(tableText("no widget name", where));
}

UiResourceEx::UiResTableEx::ExNoWidget::ExNoWidget(char const* file, int line)
    : UiResTableEx(file, line) {
    setReason("Widget without a name attribute.");
}

UiResourceEx::UiResTableEx::ExNoType::ExNoType(char const* file, int line, char const* where)
    : UiResTableEx(file, line) {
    setReason(tableText("no resource type", where));
}

UiResourceEx::UiResTableEx::ExNoType::ExNoType(char const* file, int line, LiString const& widget,
                                               LiString const& resource)
    : UiResTableEx(file, line) {
    setReason("no resource type for widget `" + widget.str() + "` resource `" + resource.str() +
              "`.");
}

UiResourceEx::UiResTableEx::ExUnknownType::ExUnknownType(char const* file, int line,
                                                         char const* where)
    : UiResTableEx(file, line) {
    setReason(tableText("unknown resource type", where));
}

UiResourceEx::UiResTableEx::ExUnknownType::ExUnknownType(char const* file, int line,
                                                         LiString const& widget,
                                                         LiString const& resource)
    : UiResTableEx(file, line) {
    setReason("unknown resource type for widget `" + widget.str() + "` resource `" +
              resource.str() + "`.");
}

UiResourceEx::UiResTableEx::ExNoName::ExNoName(char const* file, int line, char const* where)
    : UiResTableEx(file, line) {
    setReason(tableText("no resource name given", where));
}

UiResourceEx::UiResTableEx::ExNoName::ExNoName(char const* file, int line, LiString const& name)
    : UiResTableEx(file, line) {
    setReason("no resource name given for widget `" + name.str() + "`.");
}

UiResourceEx::UiResTableEx::ExNoParameters::ExNoParameters(char const* file, int line,
                                                           char const* where)
    : UiResTableEx(file, line) {
    setReason(tableText("no resource parameter given", where));
}

UiResourceEx::UiResTableEx::ExNoParameters::ExNoParameters(char const* file, int line,
                                                           LiString const& name)
    : UiResTableEx(file, line) {
    setReason("no resource parameter given `" + name.str() + "`.");
}

UiResourceEx::UiColorEx::ExUnknownType::ExUnknownType(char const* file, int line,
                                                      LiString const& name)
    : UiColorEx(file, line) {
    setReason("Error, Unknown color type " + name.str());
}

UiResourceEx::UiInvalidFontEx::UiInvalidFontEx(char const* file, int line, LiString const& handle)
    : UiResourceEx(file, line) {
    setReason("Error, invalid font handle " + handle.str());
}

UiResourceEx::UiInvalidFrameEx::UiInvalidFrameEx(char const* file, int line, LiString const& name)
    : UiResourceEx(file, line) {
    setReason("Error, invalid frame name " + name.str());
}

UiResourceEx::UiConstraintEx::ExUninitialized::ExUninitialized(char const* file, int line)
    : UiConstraintEx(file, line) {
    setReason("Error, Use of a unitialized constraint");
}

UiResourceEx::UiConstraintEx::ExBaseDimension::ExBaseDimension(char const* file, int line)
    : UiConstraintEx(file, line) {
    setReason("Error, dimension used twice within the same axis");
}

UiResourceEx::UiConstraintEx::ExUnknownType::ExUnknownType(char const* file, int line,
                                                           std::string const& keyword)
    : UiConstraintEx(file, line) {
    setReason("Error, Unknown constraint type " + keyword);
}

UiResourceEx::UiConstraintEx::ExUnknownType::ExUnknownType(char const* file, int line,
                                                           std::string const& keyword,
                                                           std::string const& lineEnd)
    : UiConstraintEx(file, line) {
    setReason("Error, Unknown constraint type " + keyword + lineEndText(lineEnd));
}

UiResourceEx::UiConstraintEx::ExUnknownTarget::ExUnknownTarget(char const* file, int line,
                                                               std::string const& keyword)
    : UiConstraintEx(file, line) {
    setReason("Error, Unknown constraint target " + keyword);
}

UiResourceEx::UiConstraintEx::ExUnknownTarget::ExUnknownTarget(char const* file, int line,
                                                               std::string const& keyword,
                                                               std::string const& lineEnd)
    : UiConstraintEx(file, line) {
    setReason("Error, Unknown constraint target " + keyword + lineEndText(lineEnd));
}

} // namespace Zr
