// PiUserSettings: the process's user preferences.
#include "piUserSettings.h"

#include "lkSingleton.h"

#include <string>

namespace Zr {

bool PiUserSettings::isInitialized() {
    return LkSingleton<PiUserSettings>::isInitialized();
}

PiUserSettings& PiUserSettings::getInstance() {
    return LkSingleton<PiUserSettings>::getInstance();
}

PiUserSettings::PiUserSettings() = default;

void PiUserSettings::setValueEditorMotion(int motion) {
    if (motion < Horizontal || motion > Both)
        throw PiUserSettingsEx::ExBadValue(
            __FILE__, __LINE__, "Value editor motion must be 0, 1 or 2: " + std::to_string(motion));
    if (motion == _valueEditorMotion)
        return;
    _valueEditorMotion = motion;
    _changeDispatcher.call();
}

} // namespace Zr
