// DrCarrier's creation.
#include "drCarrier.h"

namespace Zr {

RCShdPtr<DrCarrier> DrCarrier::create(RCShdPtr<SnSelection> const& selection) {
    ZR_ASSERT(!selection.isNull());
    return RCShdPtr<DrCarrier>(new DrCarrier(selection));
}

} // namespace Zr
