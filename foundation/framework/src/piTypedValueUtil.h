// Typed access to a PiValue: PiTypedValueUtil<T> reads and writes, PiConstTypedValueUtil<T>
// reads, PiConstTypedValueArrayUtil<T> reads the elements of an array value.
#pragma once

#include "piValue.h"

#include <cstddef>

namespace Zr {

// T is double, int32_t, int64_t, bool, std::string or std::vector<double>. Made with check 1,
// a value of another type raises PiValueEx::ExWrongType at once; with 0, at the first access.
// A default-constructed utility holds no value (isNull); reading it raises ExNullPtr.
template <class T>
class PiTypedValueUtil {
public:
    PiTypedValueUtil() = default;
    explicit PiTypedValueUtil(RCShdPtr<PiValue> const& value, int check = 1) : _value(value) {
        if (check == 1 && _value && _value->getType() != PiValue::typeOf<T>())
            _value->template get<T>();
    }

    bool isNull() const { return _value.isNull(); }
    RCShdPtr<PiValue> const& getValue() const { return _value; }
    T const& get() const { return _value->template get<T>(); }
    void set(T const& v) const { _value->set(v); }

private:
    RCShdPtr<PiValue> _value;
};

template <class T>
class PiConstTypedValueUtil {
public:
    PiConstTypedValueUtil() = default;
    explicit PiConstTypedValueUtil(RCShdPtr<PiValue const> const& value, int check = 1)
        : _value(value) {
        if (check == 1 && _value && _value->getType() != PiValue::typeOf<T>())
            _value->template get<T>();
    }

    bool isNull() const { return _value.isNull(); }
    RCShdPtr<PiValue const> const& getValue() const { return _value; }
    T const& get() const { return _value->template get<T>(); }

private:
    RCShdPtr<PiValue const> _value;
};

// T is the element type: double over a DoubleArray value.
template <class T>
class PiConstTypedValueArrayUtil {
public:
    PiConstTypedValueArrayUtil() = default;
    explicit PiConstTypedValueArrayUtil(RCShdPtr<PiValue const> const& value, int check = 1)
        : _value(value) {
        if (check == 1 && _value && _value->getType() != PiValue::typeOf<std::vector<T>>())
            _value->template get<std::vector<T>>();
    }

    bool isNull() const { return _value.isNull(); }
    RCShdPtr<PiValue const> const& getValue() const { return _value; }
    std::size_t size() const { return array().size(); }
    // Out of range is an assertion failure.
    T const& operator[](std::size_t index) const {
        std::vector<T> const& a = array();
        ZR_ASSERT(index < a.size());
        return a[index];
    }

private:
    std::vector<T> const& array() const { return _value->template get<std::vector<T>>(); }
    RCShdPtr<PiValue const> _value;
};

} // namespace Zr
