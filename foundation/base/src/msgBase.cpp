// Message texts: lookup of subscriptions and substitution of arguments.
#include "msgBase.h"

#include "msgServer.h"

namespace Zr {

MsgBase::MsgBase(MsgSeverity severity, std::string text,
                 std::initializer_list<MsgArgument> arguments)
    : _severity(severity), _template(std::move(text)) {
    for (MsgArgument const& a : arguments)
        _arguments.push_back(a.getText());
}

MsgBase::MsgBase(MsgSeverity severity, MsgSubscription const& subscription,
                 std::initializer_list<MsgArgument> arguments)
    : _severity(severity), _id(subscription.getId()) {
    // Looked up now: the message keeps its text even if its file is unloaded before display.
    _template = MsgServer::getInstance().lookup(_id).value_or(_id);
    for (MsgArgument const& a : arguments)
        _arguments.push_back(a.getText());
}

char const* MsgBase::getSeverityName() const {
    switch (_severity) {
    case MsgSeverity::Information:
        return "Information";
    case MsgSeverity::Warning:
        return "Warning";
    case MsgSeverity::Error:
        return "Error";
    }
    return "Error";
}

MsgBase& MsgBase::arg(MsgArgument const& argument) {
    _arguments.push_back(argument.getText());
    return *this;
}

std::string MsgBase::getText() const {
    return substitute(_template, _arguments);
}

std::string MsgBase::substitute(std::string const& text,
                                std::vector<std::string> const& arguments) {
    std::string result;
    result.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size()) {
        char c = text[i];
        if (c != '%' || i + 1 >= text.size()) {
            result += c;
            ++i;
            continue;
        }
        if (text[i + 1] == '%') {
            result += '%';
            i += 2;
            continue;
        }
        std::size_t end = i + 1;
        std::size_t number = 0;
        while (end < text.size() && text[end] >= '0' && text[end] <= '9' && end - i <= 6) {
            number = number * 10 + static_cast<std::size_t>(text[end] - '0');
            ++end;
        }
        if (end > i + 1 && number >= 1 && number <= arguments.size()) {
            result += arguments[number - 1];
        } else {
            result.append(text, i, end - i);
        }
        i = end;
    }
    return result;
}

} // namespace Zr
