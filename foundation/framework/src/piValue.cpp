// Stored values: typed access, text form, undo snapshots and change notification.
#include "piValue.h"

#include <cctype>
#include <charconv>
#include <cmath>

namespace Zr {

namespace {

class PiValueMemento : public CmMemento {
public:
    explicit PiValueMemento(PiValue::Data data) : _data(std::move(data)) {}
    bool equals(CmMemento const& other) const override {
        auto const* o = dynamic_cast<PiValueMemento const*>(&other);
        return o && o->_data == _data;
    }
    PiValue::Data const& getData() const { return _data; }

private:
    PiValue::Data _data;
};

std::string_view trim(std::string_view s) {
    while (!s.empty() && std::isspace(static_cast<unsigned char>(s.front())))
        s.remove_prefix(1);
    while (!s.empty() && std::isspace(static_cast<unsigned char>(s.back())))
        s.remove_suffix(1);
    return s;
}

template <class N>
bool parseNumber(std::string_view s, N& out) {
    s = trim(s);
    if (!s.empty() && s.front() == '+')
        s.remove_prefix(1);
    if (s.empty())
        return false;
    auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), out);
    return ec == std::errc() && end == s.data() + s.size();
}

void appendDouble(std::string& out, double v) {
    char buf[64];
    auto res = std::to_chars(buf, buf + sizeof buf, v);
    out.append(buf, res.ptr);
}

} // namespace

PiValue::PiValue(std::string name, double value) : _name(std::move(name)), _data(value) {}
PiValue::PiValue(std::string name, std::int32_t value) : _name(std::move(name)), _data(value) {}
PiValue::PiValue(std::string name, std::int64_t value) : _name(std::move(name)), _data(value) {}
PiValue::PiValue(std::string name, bool value)
    : _name(std::move(name)), _data(std::in_place_type<bool>, value) {}
PiValue::PiValue(std::string name, std::string value)
    : _name(std::move(name)), _data(std::in_place_type<std::string>, std::move(value)) {}
PiValue::PiValue(std::string name, char const* value)
    : _name(std::move(name)), _data(std::in_place_type<std::string>, value ? value : "") {}
PiValue::PiValue(std::string name, std::vector<double> value)
    : _name(std::move(name)), _data(std::in_place_type<std::vector<double>>, std::move(value)) {}

PiValue::PiValue(std::string name, Type type) : _name(std::move(name)) {
    switch (type) {
    case Type::Double:
        _data.emplace<double>(0.0);
        break;
    case Type::Int32:
        _data.emplace<std::int32_t>(0);
        break;
    case Type::Int64:
        _data.emplace<std::int64_t>(0);
        break;
    case Type::Bool:
        _data.emplace<bool>(false);
        break;
    case Type::String:
        _data.emplace<std::string>();
        break;
    case Type::DoubleArray:
        _data.emplace<std::vector<double>>();
        break;
    }
}

PiValue::~PiValue() = default;

char const* PiValue::getTypeName(Type type) {
    switch (type) {
    case Type::Double:
        return "Double";
    case Type::Int32:
        return "Int32";
    case Type::Int64:
        return "Int64";
    case Type::Bool:
        return "Bool";
    case Type::String:
        return "String";
    case Type::DoubleArray:
        return "DoubleArray";
    }
    return "?";
}

void PiValue::throwWrongType(Type asked) const {
    throw PiValueEx::ExWrongType(__FILE__, __LINE__,
                                 "Value \"" + _name + "\" is of type " + getTypeName(getType()) +
                                     ", not " + getTypeName(asked));
}

double PiValue::getAsDouble() const {
    switch (getType()) {
    case Type::Double:
        return std::get<double>(_data);
    case Type::Int32:
        return std::get<std::int32_t>(_data);
    case Type::Int64:
        return static_cast<double>(std::get<std::int64_t>(_data));
    case Type::Bool:
        return std::get<bool>(_data) ? 1.0 : 0.0;
    default:
        throwWrongType(Type::Double);
    }
}

void PiValue::assign(Data data) {
    willChange();
    _data = std::move(data);
    _changeDispatcher.call(*this);
}

std::string PiValue::toString() const {
    std::string out;
    switch (getType()) {
    case Type::Double:
        appendDouble(out, std::get<double>(_data));
        break;
    case Type::Int32:
        out = std::to_string(std::get<std::int32_t>(_data));
        break;
    case Type::Int64:
        out = std::to_string(std::get<std::int64_t>(_data));
        break;
    case Type::Bool:
        out = std::get<bool>(_data) ? "true" : "false";
        break;
    case Type::String:
        out = std::get<std::string>(_data);
        break;
    case Type::DoubleArray: {
        bool first = true;
        for (double v : std::get<std::vector<double>>(_data)) {
            if (!first)
                out += ' ';
            first = false;
            appendDouble(out, v);
        }
        break;
    }
    }
    return out;
}

void PiValue::setFromString(std::string const& text) {
    auto bad = [&]() {
        throw PiValueEx::ExBadText(__FILE__, __LINE__,
                                   "Bad " + std::string(getTypeName(getType())) + " text \"" +
                                       text + "\" for value \"" + _name + "\"");
    };
    switch (getType()) {
    case Type::Double: {
        double v = 0;
        if (!parseNumber(text, v))
            bad();
        set(v);
        break;
    }
    case Type::Int32: {
        std::int32_t v = 0;
        if (!parseNumber(text, v))
            bad();
        set(v);
        break;
    }
    case Type::Int64: {
        std::int64_t v = 0;
        if (!parseNumber(text, v))
            bad();
        set(v);
        break;
    }
    case Type::Bool: {
        std::string_view t = trim(text);
        if (t == "true" || t == "1")
            set(true);
        else if (t == "false" || t == "0")
            set(false);
        else
            bad();
        break;
    }
    case Type::String:
        set(text);
        break;
    case Type::DoubleArray: {
        std::vector<double> values;
        std::string_view rest = text;
        while (true) {
            rest = trim(rest);
            if (rest.empty())
                break;
            std::size_t end = 0;
            while (end < rest.size() && !std::isspace(static_cast<unsigned char>(rest[end])))
                ++end;
            double v = 0;
            if (!parseNumber(rest.substr(0, end), v))
                bad();
            values.push_back(v);
            rest.remove_prefix(end);
        }
        set(values);
        break;
    }
    }
}

OPtr<CmMemento> PiValue::snapshotState() const {
    return std::make_unique<PiValueMemento>(_data);
}

void PiValue::restoreState(CmMemento const& memento) {
    auto const* m = dynamic_cast<PiValueMemento const*>(&memento);
    ZR_ASSERT(m != nullptr);
    if (m->getData() == _data)
        return;
    assign(m->getData());
}

} // namespace Zr
