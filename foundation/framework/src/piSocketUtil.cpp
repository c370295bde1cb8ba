// PiSocketUtil: lookup, naming and state tests of node inputs.
#include "piSocketUtil.h"

#include "piExpressionServices.h"
#include "piStructuredInput.h"

namespace Zr {

RCShdPtr<PiInput> PiSocketUtil::getInput(RCShdPtr<PiNode> const& node, std::string const& name) {
    if (node.isNull())
        return nullptr;
    if (auto input = node->findInput(name))
        return input;
    auto const dot = name.find('.');
    if (dot == std::string::npos)
        return nullptr;
    auto const* whole =
        dynamic_cast<PiStructuredInput const*>(node->findInput(name.substr(0, dot)).get());
    return whole ? whole->findPart(name.substr(dot + 1)) : nullptr;
}

RCShdPtr<PiInput const> PiSocketUtil::getInput(RCShdPtr<PiNode const> const& node,
                                               std::string const& name) {
    // Finding changes nothing; the writable lookup serves both.
    return getInput(RCShdPtr<PiNode>(const_cast<PiNode*>(node.get())), name);
}

std::string PiSocketUtil::getName(RCShdPtr<PiInput const> const& input, int mode,
                                  PrdPredicate<PiInput> const* predicate, int options) {
    ZR_ASSERT(mode == NAME || mode == DISPLAY_NAME);
    if (input.isNull())
        return {};
    auto nameOf = [mode](PiInput const& in) -> std::string const& {
        return mode == NAME ? in.getName() : in.getDisplayName();
    };
    std::string name = nameOf(*input);
    if (PiStructuredInput const* whole = input->getParent())
        if (!predicate || !*predicate || (*predicate)(*whole))
            name = nameOf(*whole) + "." + name;
    if ((options & WITH_NODE) != 0)
        if (PiNode const* node = input->getNode())
            name = node->getFullName() + "." + name;
    return name;
}

void PiSocketUtil::resetInput(RCShdPtr<PiInput> const& input) {
    if (!input.isNull())
        input->reset();
}

bool PiSocketUtil::hasAnimation(RCShdPtr<PiInput const> const& input) {
    return !input.isNull() && input->hasAnimation();
}

bool PiSocketUtil::hasAnimationKey(RCShdPtr<PiInput const> const& input,
                                   RCShdPtr<PiTimePath const> const& timePath) {
    if (input.isNull() || !input->hasAnimation())
        return false;
    double const time = timePath.isNull() ? 0.0 : timePath->getTime();
    if (auto const* whole = dynamic_cast<PiStructuredInput const*>(input.get())) {
        for (auto const& part : whole->getParts())
            if (part->hasKeyAt(time))
                return true;
        return false;
    }
    return input->hasKeyAt(time);
}

bool PiSocketUtil::isAnimatable(RCShdPtr<PiInput const> const& input) {
    return !input.isNull() && input->isAnimatable();
}

bool PiSocketUtil::hasExpression(RCShdPtr<PiInput const> const& input) {
    return !input.isNull() && input->hasExpression();
}

std::string PiSocketUtil::removeExpressionToken(std::string const& text) {
    std::string const& token = PiExpressionServices::getTisaneToken();
    if (text.compare(0, token.size(), token) == 0)
        return text.substr(token.size());
    return text;
}

} // namespace Zr
