// UiIdentifierFilter: a text field filter for names that become identifiers and file names:
// none of the characters file names may not hold, and no blanks around the name.
#pragma once

#include "uiTextField.h"

namespace Zr {

class UiIdentifierFilter : public UiTextField::Filter {
public:
    UiIdentifierFilter();
    // False for the characters file names may not hold.
    bool isValid(char c) const override;
    // Not empty, no refused character, no blank at either end.
    bool isValid(LiString const& text) const override;
    // The refused characters dropped and the blanks around the name trimmed.
    LiString postFilter(LiString const& text) override;

private:
    std::string _refused;
};

} // namespace Zr
