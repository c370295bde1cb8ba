// NodeDescriptionCheck: finds the parts of a node's panel description that can't be built, so
// that the panel is made from what is valid. Each part left out is reported once through the
// message server, naming the description's owner and where the part stands.
#pragma once

#include <memory>
#include <string>

namespace Zr {

class XmlDocument;

struct NodeDescriptionCheck {
    // Takes out of `document` the definitions no node can build: unknown widget types, a
    // definition without its <Widget> record, a group of an unknown type, a definition nested
    // past the widget factory's limit. Meant for a description as it is read, before it is
    // cached. Returns how many parts were taken out.
    static int removeUnbuildable(XmlDocument const& document, std::string const& owner);

    // Whether `document` has such parts; they are reported.
    static bool hasRefused(XmlDocument const& document, std::string const& owner);
    // A copy of `document` without them; the document itself, lent by a caller, stays as it is.
    static std::unique_ptr<XmlDocument> withoutRefused(XmlDocument const& document,
                                                       std::string const& owner);
};

} // namespace Zr
