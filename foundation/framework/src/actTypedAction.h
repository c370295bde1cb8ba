// ActTypedAction<Target, Input>: an action written on typed values. It takes the first item of
// the selection that converts to Target and the first that converts to Input (looking in the
// carrier's selection after the menu's own), converts both with SnItemConvert and calls the
// typed test and perform. Without either item the action isn't offered and does nothing.
// A subclass that declares the typed test and perform hides the selection forms by name: call
// those through ActAction&, as the registry does.
#pragma once

#include "actAction.h"
#include "snItemConvert.h"

namespace Zr {

template <class Target, class Input>
class ActTypedAction : public ActAction {
public:
    using TargetType = Target;
    using InputType = Input;

    bool acceptsSelection(SnSelection const& selection, DrCarrier const* carrier) const override {
        return !findTarget(selection, carrier).isNull() && !findInput(selection, carrier).isNull();
    }

    bool test(SnSelection const& selection, DrCarrier const* carrier) override {
        RCShdPtr<SnItem const> const target = findTarget(selection, carrier);
        RCShdPtr<SnItem const> const input = findInput(selection, carrier);
        if (target.isNull() || input.isNull())
            return false;
        return test(convertTarget(target), convertInput(input));
    }

    void perform(SnSelection& selection, DrCarrier* carrier) override {
        RCShdPtr<SnItem const> const target = findTarget(selection, carrier);
        RCShdPtr<SnItem const> const input = findInput(selection, carrier);
        if (target.isNull() || input.isNull())
            return;
        perform(convertTarget(target), convertInput(input));
    }

    virtual bool test(Target const& target, Input const& input) = 0;
    virtual void perform(Target const& target, Input const& input) = 0;

protected:
    // The items the action works on; null when the selection has none. A subclass that picks
    // its items otherwise must still return items that convert.
    virtual RCShdPtr<SnItem const> findTarget(SnSelection const& selection,
                                              DrCarrier const* carrier) const {
        return findFirst(selection, carrier, SnItemConvert<Target>::test);
    }
    virtual RCShdPtr<SnItem const> findInput(SnSelection const& selection,
                                             DrCarrier const* carrier) const {
        return findFirst(selection, carrier, SnItemConvert<Input>::test);
    }

    static RCShdPtr<SnItem const> findFirst(SnSelection const& selection, DrCarrier const* carrier,
                                            bool (*accepts)(RCShdPtr<SnItem const> const&)) {
        for (RCShdPtr<SnItem> const& item : selection)
            if (accepts(item))
                return item;
        if (carrier && carrier->getSelection().get() != &selection)
            for (RCShdPtr<SnItem> const& item : *carrier->getSelection())
                if (accepts(item))
                    return item;
        return {};
    }

private:
    static Target convertTarget(RCShdPtr<SnItem const> const& target) {
        ZR_ASSERT_TEXT(SnItemConvert<Target>::test(target),
                       "SnItemConvert< TargetType >::test( target )");
        return SnItemConvert<Target>::get(target);
    }
    static Input convertInput(RCShdPtr<SnItem const> const& input) {
        ZR_ASSERT_TEXT(SnItemConvert<Input>::test(input),
                       "SnItemConvert< InputType >::test( input )");
        return SnItemConvert<Input>::get(input);
    }
};

} // namespace Zr
