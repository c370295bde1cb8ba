// PiExpressionServices: the application's expression services on inputs: full names, the token
// that marks expression text in drags and on the clipboard, and each input's expression
// interface. PiInputExpression is that interface bound to one input.
#pragma once

#include "piExpressionInterface.h"
#include "piInput.h"
#include "piTimePath.h"

#include <string>

namespace Zr {

class PiGraph;

// The expression interface of one input: its expression text, a recorded setter and whether the
// expression evaluates. Validity is judged by evaluating the input at the time path's local
// time (the graph's time without a time path), so that unknown names and cycles count as well
// as texts that do not compile.
class PiInputExpression : public RCObject, public PiExpressionInterface {
public:
    PiInputExpression(RCShdPtr<PiInput> input, RCShdPtr<PiTimePath const> timePath);
    ~PiInputExpression() override;

    RCShdPtr<PiInput> const& getInput() const { return _input; }

    std::string getExpression() const override;
    // Sets the input's expression (an empty text removes it), recorded in the open undo scope.
    void setExpression(std::string const& text) override;
    // True without an expression.
    bool isValid() const override;
    // Empty when valid; else the reason, such as "Unknown input: Blur9.radius".
    std::string getErrorMessage() const override;

private:
    double getTime() const;

    RCShdPtr<PiInput> _input;
    RCShdPtr<PiTimePath const> _timePath;
};

class PiExpressionServices {
public:
    static PiExpressionServices& getInstance();

    // "Blur1.radius", "Grade1.gain.Red", "Group1.Blur1.radius"; empty for a null input.
    static std::string getInputFullName(RCShdPtr<PiInput const> const& input);
    // "tisane:", the head of every expression text carried by a drag or the clipboard; with only
    // an input's full name after it, the text is a reference to that input.
    static std::string const& getTisaneToken();
    // A number input that is not connected.
    static bool supportsExpressions(RCShdPtr<PiInput const> const& input);
    // The expression interface of the input; null when it does not support expressions.
    static RCShdPtr<PiInputExpression>
    getExpressionInterface(RCShdPtr<PiInput> const& input,
                           RCShdPtr<PiTimePath const> const& timePath = nullptr);
    // The input of a full name in the graph; the token at the head of the name is ignored.
    // Null when there is none or for a null graph.
    static RCShdPtr<PiInput> findInput(PiGraph const* graph, std::string const& fullName);

private:
    PiExpressionServices() = default;
};

} // namespace Zr
