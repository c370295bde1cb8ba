// The stream operators of UiResource.
#include "uiResource.h"

#include <istream>
#include <ostream>

namespace Zr {

std::istream& operator>>(std::istream& is, UiResource& resource) {
    resource.read(is);
    return is;
}

std::ostream& operator<<(std::ostream& os, UiResource const& resource) {
    resource.write(os, false);
    return os;
}

} // namespace Zr
