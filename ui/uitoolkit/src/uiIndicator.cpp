// UiIconIndicator: the two icons and their drawing.
#include "uiIndicator.h"

#include "smContext.h"
#include "smGl.h"
#include "smStateObject.h"

namespace Zr {

UiIconIndicator::UiIconIndicator(RCShdPtr<WsManagedImage> const& image)
    : UiIconIndicator(image, image) {}

UiIconIndicator::UiIconIndicator(char const* file) : UiIconIndicator(file, file) {}

UiIconIndicator::UiIconIndicator(RCShdPtr<WsManagedImage> const& enabled,
                                 RCShdPtr<WsManagedImage> const& disabled)
    : _enabledIcon(std::make_unique<UiIcon>(nullptr, enabled)),
      _disabledIcon(std::make_unique<UiIcon>(nullptr, disabled)) {}

UiIconIndicator::UiIconIndicator(char const* enabledFile, char const* disabledFile)
    : _enabledIcon(std::make_unique<UiIcon>()), _disabledIcon(std::make_unique<UiIcon>()) {
    _enabledIcon->loadIcon(enabledFile);
    _disabledIcon->loadIcon(disabledFile);
}

UiIconIndicator::UiIconIndicator(UiIconIndicator const& other)
    : UiBaseIndicator(other), _enabledIcon(std::make_unique<UiIcon>(*other._enabledIcon)),
      _disabledIcon(std::make_unique<UiIcon>(*other._disabledIcon)) {}

UiIconIndicator& UiIconIndicator::operator=(UiIconIndicator const& other) {
    if (this != &other) {
        UiBaseIndicator::operator=(other);
        *_enabledIcon = *other._enabledIcon;
        *_disabledIcon = *other._disabledIcon;
    }
    return *this;
}

OPtrRet<UiBaseIndicator> UiIconIndicator::clone() const {
    return std::make_unique<UiIconIndicator>(*this);
}

void UiIconIndicator::draw(bool on, ActiveState, MouseState, SmStateObject const& state, int x,
                           int y) {
    SmStateObject blended;
    blended.inherit(state).enable(Gl::BLEND).blendFunc(Gl::SRC_ALPHA, Gl::ONE_MINUS_SRC_ALPHA);
    if (SmContext* context = SmContext::getCurrentContext())
        context->applyStateObject(blended);
    UiIcon& icon = on ? *_enabledIcon : *_disabledIcon;
    icon.setRect(_rect);
    icon.draw(x, y);
}

} // namespace Zr
