// Messages shown to the user: MsgBase and its severities MsgInformation, MsgWarning and MsgError,
// built from a text or from a MsgSubscription to a message of the loaded ".msg" files, with
// arguments that replace %1, %2... in the text.
#pragma once

#include <charconv>
#include <initializer_list>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace Zr {

enum class MsgSeverity { Information, Warning, Error };

// Names a message of the loaded message files by its identifier ("MSG_NODEUI_VALID_EXPR").
class MsgSubscription {
public:
    explicit MsgSubscription(std::string id) : _id(std::move(id)) {}
    std::string const& getId() const { return _id; }

private:
    std::string _id;
};

// One argument of a message: a text, or a number written in its shortest exact form.
class MsgArgument {
public:
    MsgArgument(std::string text) : _text(std::move(text)) {}
    MsgArgument(char const* text) : _text(text ? text : "") {}
    template <class T, class = std::enable_if_t<std::is_arithmetic_v<T>>>
    MsgArgument(T value) {
        if constexpr (std::is_same_v<T, bool>) {
            _text = value ? "true" : "false";
        } else {
            char buffer[64];
            auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
            _text.assign(buffer, ec == std::errc() ? end : buffer);
        }
    }
    std::string const& getText() const { return _text; }

private:
    std::string _text;
};

class MsgBase {
public:
    virtual ~MsgBase() = default;

    MsgSeverity getSeverity() const { return _severity; }
    // "Information", "Warning" or "Error".
    char const* getSeverityName() const;
    // The message text with %1, %2... replaced by the arguments; "%%" gives "%". A number
    // without an argument stays as written, so nothing of the text is lost.
    std::string getText() const;
    // The text before substitution: the given text, the text of the subscription, or the
    // identifier itself when no loaded file defines it.
    std::string const& getTemplate() const { return _template; }
    // The subscription's identifier, "" for a message built from a text.
    std::string const& getId() const { return _id; }
    std::vector<std::string> const& getArguments() const { return _arguments; }

    // Appends the argument that replaces the next %N.
    MsgBase& arg(MsgArgument const& argument);
    virtual std::unique_ptr<MsgBase> clone() const = 0;

    // Replaces %N in `text` by arguments[N-1], as getText does.
    static std::string substitute(std::string const& text,
                                  std::vector<std::string> const& arguments);

protected:
    MsgBase(MsgSeverity severity, std::string text, std::initializer_list<MsgArgument> arguments);
    MsgBase(MsgSeverity severity, MsgSubscription const& subscription,
            std::initializer_list<MsgArgument> arguments);
    MsgBase(MsgBase const&) = default;
    MsgBase& operator=(MsgBase const&) = default;

private:
    MsgSeverity _severity;
    std::string _id;
    std::string _template;
    std::vector<std::string> _arguments;
};

// The three severities; each keeps its own type through arg() so chains stay typed.
#define ZR_DECLARE_MESSAGE(Name, Severity)                                                         \
    class Name : public MsgBase {                                                                  \
    public:                                                                                        \
        explicit Name(std::string text, std::initializer_list<MsgArgument> arguments = {})         \
            : MsgBase(Severity, std::move(text), arguments) {}                                     \
        explicit Name(MsgSubscription const& subscription,                                         \
                      std::initializer_list<MsgArgument> arguments = {})                           \
            : MsgBase(Severity, subscription, arguments) {}                                        \
        Name& arg(MsgArgument const& argument) {                                                   \
            MsgBase::arg(argument);                                                                \
            return *this;                                                                          \
        }                                                                                          \
        std::unique_ptr<MsgBase> clone() const override { return std::make_unique<Name>(*this); }  \
    }

ZR_DECLARE_MESSAGE(MsgInformation, MsgSeverity::Information);
ZR_DECLARE_MESSAGE(MsgWarning, MsgSeverity::Warning);
ZR_DECLARE_MESSAGE(MsgError, MsgSeverity::Error);

#undef ZR_DECLARE_MESSAGE

} // namespace Zr
