// Uuid generation, parsing and printing.
#include "uuid.h"

#include <random>

namespace Zr {

namespace {

int hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

bool isDashPosition(std::size_t i) {
    return i == 8 || i == 13 || i == 18 || i == 23;
}

} // namespace

Uuid Uuid::generate() {
    thread_local std::mt19937_64 engine = [] {
        std::random_device rd;
        std::seed_seq seq{rd(), rd(), rd(), rd(), rd(), rd(), rd(), rd()};
        return std::mt19937_64(seq);
    }();
    Bytes bytes;
    for (std::size_t i = 0; i < bytes.size(); i += 8) {
        std::uint64_t r = engine();
        for (std::size_t j = 0; j < 8; ++j)
            bytes[i + j] = static_cast<std::uint8_t>(r >> (8 * j));
    }
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0f) | 0x40); // version 4
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3f) | 0x80); // RFC 4122 variant
    return Uuid(bytes);
}

Uuid Uuid::fromString(std::string_view text) {
    std::string_view t = text;
    if (t.size() == 38 && t.front() == '{' && t.back() == '}')
        t = t.substr(1, 36);
    auto bad = [&]() {
        throw UuidEx::ExBadUuid(__FILE__, __LINE__, "Bad Uuid \"" + std::string(text) + "\"");
    };
    if (t.size() != 36)
        bad();
    Bytes bytes{};
    std::size_t n = 0;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (isDashPosition(i)) {
            if (t[i] != '-')
                bad();
            continue;
        }
        int const d = hexDigit(t[i]);
        if (d < 0)
            bad();
        bytes[n / 2] = static_cast<std::uint8_t>(bytes[n / 2] | (n % 2 ? d : d << 4));
        ++n;
    }
    return Uuid(bytes);
}

std::string Uuid::toString() const {
    static char const digits[] = "0123456789abcdef";
    std::string out;
    out.reserve(36);
    for (std::size_t i = 0; i < _bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            out += '-';
        out += digits[_bytes[i] >> 4];
        out += digits[_bytes[i] & 0x0f];
    }
    return out;
}

bool Uuid::isNull() const {
    for (std::uint8_t b : _bytes)
        if (b != 0)
            return false;
    return true;
}

} // namespace Zr
