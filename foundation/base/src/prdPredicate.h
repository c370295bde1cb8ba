// PrdPredicate: a test on an object, used by finders that search a collection.
#pragma once

#include <functional>

namespace Zr {

template <class T>
using PrdPredicate = std::function<bool(T const&)>;

} // namespace Zr
