// UiColorRegistry: the process-wide table of the named colours the interface draws with, with
// their defaults; resource tables and "colorDefs.xml" change them by name.
#pragma once

#include "zrBase.h"

#include <cstdint>
#include <unordered_map>

namespace Zr {

class UiColorRegistry {
public:
    // Created on first use with every default colour registered.
    static UiColorRegistry& getInstance();

    // Stores (r, g, b) / 255 under the name, replacing a former value; no clamping.
    CoRgbColorTyped<float> registerColor(LiString const& name, int r, int g, int b);
    // The colour of the name, or black for a name not registered (which stays unregistered).
    CoRgbColorTyped<float> getColor(LiString const& name) const;
    bool isRegisteredColor(LiString const& name) const;
    int getNbColors() const { return static_cast<int>(_colors.size()); }
    // Grows with every registerColor(): what was made from the registry's colours and kept is
    // out of date when the generation it was made at is no longer the current one.
    std::uint64_t getGeneration() const { return _generation; }

    // The names of the default colours; widgets refer to these, not to the text.
    static inline LiString const Background{"Background"};
    static inline LiString const Black{"Black"};
    static inline LiString const Blue{"Blue"};
    static inline LiString const Blue1{"Blue1"};
    static inline LiString const Blue2{"Blue2"};
    static inline LiString const Blue3{"Blue3"};
    static inline LiString const Blue4{"Blue4"};
    static inline LiString const Cyan{"Cyan"};
    static inline LiString const Cyan1{"Cyan1"};
    static inline LiString const BrowsableDb{"BrowsableDb"};
    static inline LiString const BrowsableFs{"BrowsableFs"};
    static inline LiString const BrowsableDt{"BrowsableDt"};
    static inline LiString const BrowsableFiltered{"BrowsableFiltered"};
    static inline LiString const FocusKeyboard{"FocusKeyboard"};
    static inline LiString const FocusPointer{"FocusPointer"};
    static inline LiString const Foreground{"Foreground"};
    static inline LiString const Green{"Green"};
    static inline LiString const Green1{"Green1"};
    static inline LiString const Green2{"Green2"};
    static inline LiString const Green3{"Green3"};
    static inline LiString const Green4{"Green4"};
    static inline LiString const InactiveForeground{"InactiveForeground"};
    static inline LiString const LabelBackground{"LabelBackground"};
    static inline LiString const SubLabelBackground{"SubLabelBackground"};
    static inline LiString const NonEditBackground{"NonEditBackground"};
    static inline LiString const TextBackground{"TextBackground"};
    static inline LiString const TextBackgroundOn{"TextBackgroundOn"};
    static inline LiString const Orange{"Orange"};
    static inline LiString const Red{"Red"};
    static inline LiString const Red1{"Red1"};
    static inline LiString const Red2{"Red2"};
    static inline LiString const Selection{"Selection"};
    static inline LiString const SelectionFocus{"SelectionFocus"};
    static inline LiString const SelectionNonFocus{"SelectionNonFocus"};
    static inline LiString const TitleForeground{"TitleForeground"};
    static inline LiString const TL3DObject{"TL3DObject"};
    static inline LiString const TLAudio{"TLAudio"};
    static inline LiString const TLContainer{"TLContainer"};
    static inline LiString const TLPositioner{"TLPositioner"};
    static inline LiString const TLImage{"TLImage"};
    static inline LiString const ToggleActive{"ToggleActive"};
    static inline LiString const ToggleInactive{"ToggleInactive"};
    static inline LiString const RadioActive{"RadioActive"};
    static inline LiString const RadioInactive{"RadioInactive"};
    static inline LiString const White{"White"};
    static inline LiString const Yellow{"Yellow"};
    static inline LiString const Yellow1{"Yellow1"};
    static inline LiString const Yellow2{"Yellow2"};
    static inline LiString const Yellow3{"Yellow3"};
    static inline LiString const Yellow4{"Yellow4"};
    static inline LiString const GridAxis{"GridAxis"};
    static inline LiString const Grid1{"Grid1"};
    static inline LiString const Grid2{"Grid2"};
    static inline LiString const Timebar{"Timebar"};
    static inline LiString const Keyframe{"Keyframe"};
    static inline LiString const Information{"Information"};
    static inline LiString const MarkedForAnimation{"MarkedForAnimation"};
    static inline LiString const Expression{"Expression"};
    static inline LiString const Anchor{"Anchor"};
    static inline LiString const Animated{"Animated"};
    // Greys: GreyN is (N, N, N).
    static inline LiString const Grey15{"Grey15"};
    static inline LiString const Grey25{"Grey25"};
    static inline LiString const Grey30{"Grey30"};
    static inline LiString const Grey35{"Grey35"};
    static inline LiString const Grey40{"Grey40"};
    static inline LiString const Grey45{"Grey45"};
    static inline LiString const Grey50{"Grey50"};
    static inline LiString const Grey60{"Grey60"};
    static inline LiString const Grey65{"Grey65"};
    static inline LiString const Grey70{"Grey70"};
    static inline LiString const Grey75{"Grey75"};
    static inline LiString const Grey80{"Grey80"};
    static inline LiString const Grey85{"Grey85"};
    static inline LiString const Grey90{"Grey90"};
    static inline LiString const Grey100{"Grey100"};
    static inline LiString const Grey107{"Grey107"};
    static inline LiString const Grey115{"Grey115"};
    static inline LiString const Grey120{"Grey120"};
    static inline LiString const Grey125{"Grey125"};
    static inline LiString const Grey128{"Grey128"};
    static inline LiString const Grey130{"Grey130"};
    static inline LiString const Grey145{"Grey145"};
    static inline LiString const Grey150{"Grey150"};
    static inline LiString const Grey175{"Grey175"};
    static inline LiString const Grey190{"Grey190"};
    static inline LiString const Grey200{"Grey200"};

private:
    UiColorRegistry();
    UiColorRegistry(UiColorRegistry const&) = delete;
    UiColorRegistry& operator=(UiColorRegistry const&) = delete;

    std::unordered_map<LiString, CoRgbColorTyped<float>> _colors;
    std::uint64_t _generation = 0;
};

} // namespace Zr
