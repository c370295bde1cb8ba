// Failure paths of the reference-counted pointers.
#include "rcBase.h"

#include <cstdlib>
#include <cxxabi.h>

namespace Zr {

std::string RCExUtil::demangle(char const* mangled) {
    int status = 0;
    char* text = abi::__cxa_demangle(mangled, nullptr, nullptr, &status);
    std::string result = (status == 0 && text) ? text : mangled;
    std::free(text);
    return result;
}

void RCExUtil::throwExNullPtr(char const* typeName) {
    throw ExNullPtr(__FILE__, __LINE__, "Null pointer dereferenced: " + demangle(typeName));
}

void RCExUtil::throwExCastFailed(char const* fromType, char const* toType) {
    throw ExCastFailed(__FILE__, __LINE__,
                       "Cast failed from " + demangle(fromType) + " to " + demangle(toType));
}

} // namespace Zr
