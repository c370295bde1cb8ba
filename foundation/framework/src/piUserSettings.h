// PiUserSettings: the user's preferences that widgets read, such as the pointer motion that
// drags a value editor.
#pragma once

#include "cbDispatcher.h"
#include "exBase.h"

namespace Zr {

struct PiUserSettingsEx {
    // A setting given a value outside its choices.
    ZR_DECLARE_EXCEPTION(ExBadValue, ExBase);
};

class PiUserSettings {
public:
    enum ValueEditorMotion { Horizontal = 0, Vertical = 1, Both = 2 };

    // True once getInstance made the settings.
    static bool isInitialized();
    static PiUserSettings& getInstance();

    PiUserSettings();
    PiUserSettings(PiUserSettings const&) = delete;
    PiUserSettings& operator=(PiUserSettings const&) = delete;

    // 0 horizontal, 1 vertical, 2 both (default 0). Other values raise
    // PiUserSettingsEx::ExBadValue. A change tells the observers once.
    int getValueEditorMotion() const { return _valueEditorMotion; }
    void setValueEditorMotion(int motion);

    void addChangeCb(CbHandler<CbEmptyType>* handler) { _changeDispatcher.addHandler(handler); }
    void removeChangeCb(CbHandler<CbEmptyType>* handler) {
        _changeDispatcher.removeHandler(handler);
    }

private:
    int _valueEditorMotion = Horizontal;
    CbDispatcher<CbEmptyType> _changeDispatcher;
};

} // namespace Zr
