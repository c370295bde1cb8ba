// PiValue: a named, typed value that a node stores (a setting with no animation), recordable
// by undo and observed by its node.
#pragma once

#include "cbDispatcher.h"
#include "cmRecordable.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace Zr {

class PiGraphObject;

struct PiValueEx {
    // A typed access to a value of another type.
    ZR_DECLARE_EXCEPTION(ExWrongType, ExBase);
    // setFromString given text that is no value of the type.
    ZR_DECLARE_EXCEPTION(ExBadText, ExBase);
};

class PiValue : public CmRecordable {
public:
    enum class Type { Double, Int32, Int64, Bool, String, DoubleArray };

    PiValue(std::string name, double value);
    PiValue(std::string name, std::int32_t value);
    PiValue(std::string name, std::int64_t value);
    PiValue(std::string name, bool value);
    PiValue(std::string name, std::string value);
    PiValue(std::string name, char const* value);
    PiValue(std::string name, std::vector<double> value);
    // A value of the type with its zero (0, false, empty).
    PiValue(std::string name, Type type);
    ~PiValue() override;

    std::string const& getName() const { return _name; }
    Type getType() const { return static_cast<Type>(_data.index()); }
    // "Double", "Int32", "Int64", "Bool", "String", "DoubleArray".
    static char const* getTypeName(Type type);
    // The type that holds a T (double, int32_t, int64_t, bool, std::string, vector<double>).
    template <class T>
    static constexpr Type typeOf();

    // Typed reads; a value of another type raises PiValueEx::ExWrongType.
    double getDouble() const { return get<double>(); }
    std::int32_t getInt32() const { return get<std::int32_t>(); }
    std::int64_t getInt64() const { return get<std::int64_t>(); }
    bool getBool() const { return get<bool>(); }
    std::string const& getString() const { return get<std::string>(); }
    std::vector<double> const& getDoubleArray() const { return get<std::vector<double>>(); }
    template <class T>
    T const& get() const;
    // Any number type (bool as 0 or 1) as a double; other types raise PiValueEx::ExWrongType.
    double getAsDouble() const;

    // Typed writes: willChange(), the change, then the change observers once. Writing the
    // value it already holds does nothing. A value of another type raises ExWrongType.
    void setDouble(double v) { set(v); }
    void setInt32(std::int32_t v) { set(v); }
    void setInt64(std::int64_t v) { set(v); }
    void setBool(bool v) { set(v); }
    void setString(std::string const& v) { set(v); }
    void setDoubleArray(std::vector<double> const& v) { set(v); }
    template <class T>
    void set(T const& value);

    // Told once per change, with the value.
    void addChangeCb(CbHandler<PiValue const>* handler) { _changeDispatcher.addHandler(handler); }
    void removeChangeCb(CbHandler<PiValue const>* handler) {
        _changeDispatcher.removeHandler(handler);
    }

    // The text form used in files: numbers round-trip exactly, bools "true"/"false", strings
    // as they are, arrays as numbers separated by spaces.
    std::string toString() const;
    // Reads the text form of the value's own type ("1"/"0" also for bools); bad text raises
    // PiValueEx::ExBadText and leaves the value unchanged.
    void setFromString(std::string const& text);

    OPtr<CmMemento> snapshotState() const override;
    void restoreState(CmMemento const& memento) override;

    // The node that holds the value, or null.
    PiGraphObject* getOwner() const { return _owner; }
    void setOwner(PiGraphObject* owner) { _owner = owner; }

    using Data =
        std::variant<double, std::int32_t, std::int64_t, bool, std::string, std::vector<double>>;

private:
    [[noreturn]] void throwWrongType(Type asked) const;
    void assign(Data data);

    std::string _name;
    Data _data;
    PiGraphObject* _owner = nullptr;
    CbDispatcher<PiValue const> _changeDispatcher;
};

template <class T>
constexpr PiValue::Type PiValue::typeOf() {
    if constexpr (std::is_same_v<T, double>)
        return Type::Double;
    else if constexpr (std::is_same_v<T, std::int32_t>)
        return Type::Int32;
    else if constexpr (std::is_same_v<T, std::int64_t>)
        return Type::Int64;
    else if constexpr (std::is_same_v<T, bool>)
        return Type::Bool;
    else if constexpr (std::is_same_v<T, std::string>)
        return Type::String;
    else {
        static_assert(std::is_same_v<T, std::vector<double>>, "no PiValue type holds this T");
        return Type::DoubleArray;
    }
}

template <class T>
T const& PiValue::get() const {
    T const* p = std::get_if<T>(&_data);
    if (!p)
        throwWrongType(typeOf<T>());
    return *p;
}

template <class T>
void PiValue::set(T const& value) {
    T const* p = std::get_if<T>(&_data);
    if (!p)
        throwWrongType(typeOf<T>());
    if (*p == value)
        return;
    assign(Data(std::in_place_type<T>, value));
}

} // namespace Zr
