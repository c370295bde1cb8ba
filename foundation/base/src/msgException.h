// MsgException: an exception that carries a user message; its reason is the message's text.
#pragma once

#include "exBase.h"
#include "msgBase.h"

#include <memory>

namespace Zr {

template <class Base = ExBase>
class MsgException : public Base {
public:
    MsgException(char const* file, int line, MsgBase const& message)
        : Base(file, line), _message(message.clone()) {
        this->setReason(_message->getText());
    }

    MsgBase const& getMessage() const { return *_message; }

    char const* getClassName() const override { return "MsgException"; }
    std::unique_ptr<ExBase> clone() const override { return std::make_unique<MsgException>(*this); }
    [[noreturn]] void raise() const override { throw *this; }

private:
    // Shared, not copied: exceptions are copied when thrown and the message never changes.
    std::shared_ptr<MsgBase const> _message;
};

} // namespace Zr
