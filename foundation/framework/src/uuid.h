// Uuid: a 128-bit identifier (node types are named by one), printed as the usual 8-4-4-4-12
// lower-case hexadecimal text.
#pragma once

#include "exBase.h"

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace Zr {

struct UuidEx {
    // Text that is no Uuid; the reason quotes it.
    ZR_DECLARE_EXCEPTION(ExBadUuid, ExBase);
};

class Uuid {
public:
    using Bytes = std::array<std::uint8_t, 16>;

    // The nil Uuid, all zeros.
    Uuid() = default;
    explicit Uuid(Bytes const& bytes) : _bytes(bytes) {}

    // A random (version 4) Uuid.
    static Uuid generate();
    // Reads "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx" in either case, optionally in braces.
    static Uuid fromString(std::string_view text);

    // Lower-case "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx".
    std::string toString() const;
    bool isNull() const;
    Bytes const& getBytes() const { return _bytes; }

    bool operator==(Uuid const&) const = default;
    std::strong_ordering operator<=>(Uuid const&) const = default;

private:
    Bytes _bytes{};
};

} // namespace Zr

template <>
struct std::hash<Zr::Uuid> {
    std::size_t operator()(Zr::Uuid const& u) const noexcept {
        std::size_t h = 1469598103934665603ull;
        for (std::uint8_t b : u.getBytes())
            h = (h ^ b) * 1099511628211ull;
        return h;
    }
};
