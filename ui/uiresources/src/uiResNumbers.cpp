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
    element.forEachElementByTagName(tag, [&](XmlElement const& child) {
        T value{};
        if (!child.getData(value)) {
            std::string text = child.getDataMB();
            text.erase(0, text.find_first_not_of(" \t\r\n"));
            text.erase(text.find_last_not_of(" \t\r\n") + 1);
            if (text.empty())
                throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
            value = parseWholeNumber<T>(text, tag); // reports the text that is no number
        }
        values.push_back(value);
    });
}

// Every word up to the end must be a number: "12abc" is reported, not taken as nothing.
template <class T>
void readValues(std::vector<T>& values, std::istream& is, char const* type) {
    values.clear();
    readAllNumbers(is, values, type);
}

template <class T>
void readText(std::vector<T>& values, char const* text, char const* type) {
    if (!text)
        return;
    std::istringstream is(text);
    readValues(values, is, type);
}

} // namespace

UiResInt::UiResInt(LiString const& name, char const* text) : UiResource(name) {
    readText(_values, text, "Int");
}

UiResInt::UiResInt(LiString const& name, std::vector<int> values)
    : UiResource(name), _values(std::move(values)) {}

void UiResInt::read(XmlElement const& element) {
    readValues(_values, element, "Int");
}

void UiResInt::read(std::istream& is) {
    readValues(_values, is, "Int");
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
    readText(_values, text, "Double");
}

UiResDouble::UiResDouble(LiString const& name, std::vector<double> values)
    : UiResource(name), _values(std::move(values)) {}

void UiResDouble::read(XmlElement const& element) {
    readValues(_values, element, "Double");
}

void UiResDouble::read(std::istream& is) {
    readValues(_values, is, "Double");
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
