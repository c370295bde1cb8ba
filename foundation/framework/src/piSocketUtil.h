// PiSocketUtil: questions and edits on node inputs that editors and menu actions share: finding
// an input by name, naming it, resetting it and its animation and expression state.
#pragma once

#include "piInput.h"
#include "piNode.h"
#include "piTimePath.h"
#include "prdPredicate.h"

#include <string>

namespace Zr {

struct PiSocketUtil {
    // getName modes.
    static constexpr int NAME = 0;
    static constexpr int DISPLAY_NAME = 1;
    // getName options.
    static constexpr int WITH_NODE = 1;

    // The input of the node called `name`; "gain.Red" names the part "Red" of the structured
    // input "gain". Null for a null node or an unknown name.
    static RCShdPtr<PiInput> getInput(RCShdPtr<PiNode> const& node, std::string const& name);
    static RCShdPtr<PiInput const> getInput(RCShdPtr<PiNode const> const& node,
                                            std::string const& name);

    // The name of the input: mode NAME (0) its name, DISPLAY_NAME (1) its display name. A part
    // is joined with "." to its structured input ("gain.Red", "Gain.Red") unless `predicate` is
    // given and refuses the structured input. With the option WITH_NODE the node's full name
    // leads ("Blur1.radius"). Empty for a null input. A mode other than 0 and 1 is an assertion
    // failure. Callers that want neither pass 0 for both: getName(input, 1, 0, 0).
    static std::string getName(RCShdPtr<PiInput const> const& input, int mode,
                               PrdPredicate<PiInput> const* predicate = nullptr, int options = 0);

    // Drops expression, animation and connection and sets the default, recorded in the open
    // undo scope. Nothing for a null input.
    static void resetInput(RCShdPtr<PiInput> const& input);

    // False for a null input in all of these.
    static bool hasAnimation(RCShdPtr<PiInput const> const& input);
    // Animated with a key at the local time of the time path (time 0 for a null time path); a
    // structured input when one of its parts has.
    static bool hasAnimationKey(RCShdPtr<PiInput const> const& input,
                                RCShdPtr<PiTimePath const> const& timePath);
    static bool isAnimatable(RCShdPtr<PiInput const> const& input);
    static bool hasExpression(RCShdPtr<PiInput const> const& input);

    // The text without PiExpressionServices::getTisaneToken() at its head; other texts as
    // they are.
    static std::string removeExpressionToken(std::string const& text);
};

} // namespace Zr
