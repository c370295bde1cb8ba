// TextFieldAdapter: the plug-in interface of a text field.
#pragma once

#include "piTextField.h"
#include "uiWidgetAdapter.h"

namespace Zr {

class UiTextField;

class TextFieldAdapter : public PiTextField, public UiWidgetAdapter {
public:
    explicit TextFieldAdapter(RCShdPtr<UiTextField> const& field);

    // "" and false once detached.
    std::string getString() const override;
    bool setString(std::string const& text, bool notify) override;
    bool isReadOnly() const override;
    void setReadOnly(bool readOnly) override;

protected:
    ~TextFieldAdapter() override;

private:
    UiTextField* field() const;
};

} // namespace Zr
