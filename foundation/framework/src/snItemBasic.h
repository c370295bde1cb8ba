// SnItemBasic<T>: the selection item that holds one value of type T. A string, a key, an input
// or any other copyable value goes into a selection this way.
#pragma once

#include "snItem.h"

#include <ostream>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace Zr {

namespace SnDetail {

template <class T>
struct IsSharedPtr : std::false_type {};
template <class U>
struct IsSharedPtr<RCShdPtr<U>> : std::true_type {
    using Element = U;
};

template <class T>
concept Streamable = requires(std::ostream& os, T const& v) {
    os << v;
};

// Prints a value as well as its type allows: a string in quotes, a number or other streamable
// value as it streams, a shared pointer as the pointee's type and address, else the type name.
template <class T>
void dumpValue(std::ostream& os, T const& value) {
    if constexpr (std::is_same_v<T, std::string>) {
        os << "string \"" << value << "\"";
    } else if constexpr (std::is_same_v<T, bool>) {
        os << "bool " << (value ? "true" : "false");
    } else if constexpr (IsSharedPtr<T>::value) {
        if (value.isNull())
            os << RCExUtil::demangle(typeid(typename IsSharedPtr<T>::Element).name()) << " null";
        else
            os << RCExUtil::demangle(typeid(*value.get()).name()) << " "
               << static_cast<void const*>(value.get());
    } else if constexpr (Streamable<T>) {
        os << RCExUtil::demangle(typeid(T).name()) << " " << value;
    } else {
        os << RCExUtil::demangle(typeid(T).name());
    }
}

} // namespace SnDetail

template <class T>
class SnItemBasic : public SnItem {
public:
    using ValueType = T;

    SnItemBasic() = default;
    explicit SnItemBasic(T value) : _value(std::move(value)) {}

    T const& get() const { return _value; }
    void set(T value) { _value = std::move(value); }

    RCShdPtr<SnItem> snapshot() const override { return makeShared<SnItemBasic>(_value); }

    void restore(SnItem const& other) override {
        auto const* source = dynamic_cast<SnItemBasic const*>(&other);
        ZR_ASSERT(source != nullptr);
        _value = source->_value;
    }

    void dump(std::ostream& os) const override { SnDetail::dumpValue(os, _value); }

    std::type_info const& getValueType() const override { return typeid(T); }

    RCObject const* getObject() const override {
        if constexpr (SnDetail::IsSharedPtr<T>::value) {
            using Element = typename SnDetail::IsSharedPtr<T>::Element;
            if constexpr (std::is_convertible_v<Element const*, RCObject const*>)
                return _value.get();
        }
        return nullptr;
    }

private:
    T _value{};
};

} // namespace Zr
