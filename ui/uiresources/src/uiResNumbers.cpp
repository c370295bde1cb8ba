// UiResInt and UiResDouble: lists of numbers, one type element per value.
#include "uiResDouble.h"
#include "uiResInt.h"
#include "uiResNumberText.h"

#include "xmlElement.h"
#include "xmlWriter.h"

#include <istream>
#include <ostream>
#include <sstream>

namespace Zr {

namespace {

// Reading first clears the list, so a later read replaces what an earlier one gave.
template <class T>
void readValues(std::vector<T>& values, XmlElement const& element, char const* tag) {
    values.clear();
    for (XmlElement const& child : element.getElementsByTagName(tag)) {
        T value{};
        if (!child.getData(value))
            throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
        values.push_back(value);
    }
}

// Stops at the first text that is not a number, keeping what was read before it.
template <class T>
void readValues(std::vector<T>& values, std::istream& is) {
    values.clear();
    T value{};
    while (readNumber(is, value))
        values.push_back(value);
}

template <class T>
void readText(std::vector<T>& values, char const* text) {
    if (!text)
        return;
    std::istringstream is(text);
    readValues(values, is);
}

} // namespace

UiResInt::UiResInt(LiString const& name, char const* text) : UiResource(name) {
    readText(_values, text);
}

UiResInt::UiResInt(LiString const& name, std::vector<int> values)
    : UiResource(name), _values(std::move(values)) {}

void UiResInt::read(XmlElement const& element) {
    readValues(_values, element, "Int");
}

void UiResInt::read(std::istream& is) {
    readValues(_values, is);
}

void UiResInt::write(XmlWriter& writer, bool) const {
    for (int value : _values) {
        XmlWriter::ElementGuard guard(writer, "Int");
        writer.writeData(value);
    }
}

void UiResInt::write(std::ostream& os, bool) const {
    for (int value : _values)
        os << value << ' ';
}

int UiResInt::getValue(int index) const {
    ZR_ASSERT(index >= 0 && index < getNbValues());
    return _values[index];
}

void UiResInt::setValue(int value, int index) {
    ZR_ASSERT(index >= 0);
    if (index >= getNbValues())
        _values.resize(index + 1, 0);
    _values[index] = value;
}

UiResDouble::UiResDouble(LiString const& name, char const* text) : UiResource(name) {
    readText(_values, text);
}

UiResDouble::UiResDouble(LiString const& name, std::vector<double> values)
    : UiResource(name), _values(std::move(values)) {}

void UiResDouble::read(XmlElement const& element) {
    readValues(_values, element, "Double");
}

void UiResDouble::read(std::istream& is) {
    readValues(_values, is);
}

void UiResDouble::write(XmlWriter& writer, bool) const {
    for (double value : _values) {
        XmlWriter::ElementGuard guard(writer, "Double");
        writer.writeData(value);
    }
}

void UiResDouble::write(std::ostream& os, bool) const {
    for (double value : _values) {
        writeShortestNumber(os, value);
        os << ' ';
    }
}

double UiResDouble::getValue(int index) const {
    ZR_ASSERT(index >= 0 && index < getNbValues());
    return _values[index];
}

void UiResDouble::setValue(double value, int index) {
    ZR_ASSERT(index >= 0);
    if (index >= getNbValues())
        _values.resize(index + 1, 0.0);
    _values[index] = value;
}

} // namespace Zr
