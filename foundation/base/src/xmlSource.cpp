// Line and column numbers of byte offsets in a parsed XML text.
#include "xmlSource.h"

#include <algorithm>
#include <cstring>

namespace Zr {

void XmlSource::buildIndex() const {
    std::call_once(_indexOnce, [this] {
        _lineStarts.push_back(0);
        char const* begin = _text.data();
        char const* end = begin + _text.size();
        for (char const* p = begin; p < end;) {
            auto nl =
                static_cast<char const*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p)));
            if (!nl)
                break;
            _lineStarts.push_back(static_cast<std::size_t>(nl - begin) + 1);
            p = nl + 1;
        }
    });
}

int XmlSource::getLine(std::size_t offset) const {
    buildIndex();
    auto it = std::upper_bound(_lineStarts.begin(), _lineStarts.end(), offset);
    return static_cast<int>(it - _lineStarts.begin());
}

int XmlSource::getColumn(std::size_t offset) const {
    int line = getLine(offset);
    return static_cast<int>(offset - _lineStarts[static_cast<std::size_t>(line - 1)]) + 1;
}

} // namespace Zr
