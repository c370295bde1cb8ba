// SnItem's stream output.
#include "snItem.h"

#include <ostream>

namespace Zr {

std::ostream& operator<<(std::ostream& os, SnItem const& item) {
    item.dump(os);
    return os;
}

} // namespace Zr
