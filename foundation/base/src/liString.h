// LiString: the name type of the toolkit. Widget, resource, colour and font names are
// LiStrings, compared exactly; the hash is computed once, when the text is set.
#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>

namespace Zr {

class LiString {
public:
    LiString() = default;
    LiString(char const* s) : _text(s ? s : "") { rehash(); }
    LiString(std::string s) : _text(std::move(s)) { rehash(); }
    LiString(std::string_view s) : _text(s) { rehash(); }

    LiString& operator=(char const* s) { return *this = LiString(s); }
    LiString& operator=(std::string const& s) { return *this = LiString(s); }

    std::string const& str() const { return _text; }
    char const* c_str() const { return _text.c_str(); }
    operator std::string const&() const { return _text; }
    std::size_t size() const { return _text.size(); }
    bool empty() const { return _text.empty(); }
    std::size_t hashFunc() const { return _hash; }

    bool operator==(LiString const& o) const { return _hash == o._hash && _text == o._text; }
    bool operator==(char const* s) const { return _text == (s ? s : ""); }
    bool operator==(std::string const& s) const { return _text == s; }
    bool operator<(LiString const& o) const { return _text < o._text; }

private:
    void rehash() { _hash = std::hash<std::string_view>()(_text); }
    std::string _text;
    std::size_t _hash = std::hash<std::string_view>()(std::string_view());
};

inline std::ostream& operator<<(std::ostream& os, LiString const& s) { return os << s.str(); }

template <class K>
struct Hash;
template <>
struct Hash<LiString> {
    std::size_t operator()(LiString const& s) const { return s.hashFunc(); }
};

} // namespace Zr

template <>
struct std::hash<Zr::LiString> {
    std::size_t operator()(Zr::LiString const& s) const noexcept { return s.hashFunc(); }
};
