// Out-of-line parts of RCBasePtr that need <ostream>.
#pragma once

#include <ostream>

namespace Zr {

template <class T>
void RCBasePtr<T>::dump(std::ostream& os) const {
    os << "Pointee type = "
       << (_p ? RCExUtil::demangle(typeid(*_p).name()) : std::string("null"))
       << ", T type = " << RCExUtil::demangle(typeid(T).name())
       << ", ref: " << (_p ? _p->getReferenceCount() : 0) << ", pointer:" << static_cast<void const*>(_p)
       << ", RCBase pointer: " << static_cast<void const*>(_p);
}

} // namespace Zr
