// ExBase, the root of every exception in the toolkit, and Assertions, which turn a failed
// programming condition into an exception instead of ending the process.
#pragma once

#include <exception>
#include <memory>
#include <string>

namespace Zr {

class ExBase : public std::exception {
public:
    ExBase(char const* file, int line);
    ~ExBase() override = default;

    // Appends to the reason; a handler that catches and rethrows can add context.
    void setReason(std::string const& text);
    std::string const& getReason() const { return _reason; }
    // The reason with the source location and the class name in front.
    std::string getDetailedReason() const;
    char const* what() const noexcept override { return _reason.c_str(); }

    char const* getFile() const { return _file; }
    int getLine() const { return _line; }
    virtual char const* getClassName() const { return "ExBase"; }

    virtual std::unique_ptr<ExBase> clone() const { return std::make_unique<ExBase>(*this); }
    [[noreturn]] virtual void raise() const { throw *this; }

private:
    char const* _file;
    int _line;
    std::string _reason;
};

// Declares an exception class Name derived from Base, with clone and raise of its own type.
#define ZR_DECLARE_EXCEPTION(Name, Base)                                                           \
    class Name : public Base {                                                                     \
    public:                                                                                        \
        Name(char const* file, int line) : Base(file, line) {}                                     \
        Name(char const* file, int line, std::string const& reason) : Base(file, line) {           \
            setReason(reason);                                                                     \
        }                                                                                          \
        char const* getClassName() const override { return #Name; }                                \
        std::unique_ptr<::Zr::ExBase> clone() const override {                                     \
            return std::make_unique<Name>(*this);                                                  \
        }                                                                                          \
        [[noreturn]] void raise() const override { throw *this; }                                  \
    }

ZR_DECLARE_EXCEPTION(ExAssertionFailed, ExBase);
ZR_DECLARE_EXCEPTION(ExProgramAborted, ExBase);

struct Assertions {
    // Throws ExAssertionFailed whose reason is exactly `text`, the condition as written.
    [[noreturn]] static void throwAssertionFailed(char const* file, int line, char const* text);
    // Throws ExProgramAborted for a state that cannot happen.
    [[noreturn]] static void throwProgramAborted(char const* file, int line, char const* text);
};

// Prints one line to standard output without interleaving with other threads.
struct ExStdout {
    static void printAtomically(std::string const& text);
};

} // namespace Zr

// The assertion text is the condition exactly as written in the source.
#define ZR_ASSERT(cond)                                                                            \
    do {                                                                                           \
        if (!(cond))                                                                               \
            ::Zr::Assertions::throwAssertionFailed(__FILE__, __LINE__, #cond);                     \
    } while (0)
#define ZR_ASSERT_TEXT(cond, text)                                                                 \
    do {                                                                                           \
        if (!(cond))                                                                               \
            ::Zr::Assertions::throwAssertionFailed(__FILE__, __LINE__, text);                      \
    } while (0)
#define ZR_ABORT(text) ::Zr::Assertions::throwProgramAborted(__FILE__, __LINE__, text)
