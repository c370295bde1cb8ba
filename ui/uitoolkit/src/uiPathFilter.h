// UiPathFilter: a text field filter for paths that must name a directory or a file. Patterns of
// the substituter (such as "$HOME") are expanded before the file system is asked.
#pragma once

#include "uiTextField.h"

#include "liStringUtil.h"

namespace Zr {

class UiPathFilter : public UiTextField::Filter {
public:
    enum Kind { Directory, File };

    // `mustExist`: an empty or missing path is refused ("Directory does not exist.").
    UiPathFilter(Kind kind, bool mustExist);

    // An existing path of the other kind shows "Path must be a directory." or "Path must be a
    // file." as an error and gives false.
    bool isValid(LiString const& text) const override;
    using Filter::isValid;
    // The path without blanks around it.
    LiString postFilter(LiString const& text) override;

    LiStringSubstituter& getSubstituter() { return _substituter; }

private:
    Kind _kind;
    bool _mustExist;
    LiStringSubstituter _substituter;
};

} // namespace Zr
