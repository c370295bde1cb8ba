// PiExpression: one muparser parser per expression, compiled once. Every name the text uses gets
// a slot through the parser's variable factory; evaluation fills the slots from the resolver.
#include "piExpression.h"

#include <muParser.h>

#include <deque>

namespace Zr {

namespace {

// Input full names: letters, digits, '_' and the '.' between node, input and part names.
char const* const NAME_CHARS = "0123456789_abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ.";

bool startsName(char c) {
    return c == '_' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isBlank(std::string const& text) {
    return text.find_first_not_of(" \t\n\v\f\r") == std::string::npos;
}

} // namespace

struct PiExpression::Imp {
    std::string text;
    bool valid = false;
    std::string error;
    std::vector<std::string> variables;
    // One slot per entry of `variables`; a deque keeps the addresses the parser holds.
    std::deque<double> slots;
    double time = 0.0;
    double frame = 0.0;
    mu::Parser parser;

    // Called by the parser for each name it meets the first time, in the order of the text.
    // A name starts with a letter or '_', as node names do: "1e400" is a number out of range,
    // not the name of an input.
    static double* addVariable(char const* name, void* data) {
        auto* imp = static_cast<Imp*>(data);
        if (!startsName(name[0]))
            throw mu::Parser::exception_type(mu::ecINVALID_NAME, name, imp->text);
        imp->variables.emplace_back(name);
        return &imp->slots.emplace_back(0.0);
    }

    void compile() {
        if (isBlank(text)) {
            error = "Empty expression";
            return;
        }
        try {
            parser.DefineNameChars(NAME_CHARS);
            parser.DefineVar("time", &time);
            parser.DefineVar("frame", &frame);
            parser.SetVarFactory(&Imp::addVariable, this);
            parser.SetExpr(text);
            // The first evaluation parses the text and builds the byte code that later
            // evaluations run; the slots hold zeros meanwhile.
            parser.Eval();
            valid = true;
        } catch (mu::Parser::exception_type const& ex) {
            error = ex.GetMsg();
            if (error.empty())
                error = "Invalid expression";
            variables.clear();
        }
    }
};

PiExpression::PiExpression(std::string const& text) : _imp(std::make_unique<Imp>()) {
    _imp->text = text;
    _imp->compile();
}

PiExpression::~PiExpression() = default;

std::string const& PiExpression::getText() const {
    return _imp->text;
}

bool PiExpression::isValid() const {
    return _imp->valid;
}

std::string const& PiExpression::getErrorMessage() const {
    return _imp->error;
}

std::vector<std::string> const& PiExpression::getVariables() const {
    return _imp->variables;
}

double PiExpression::evaluate(double time, double rate, Resolver const& resolver) const {
    Imp& imp = *_imp;
    if (!imp.valid)
        throw PiExpressionEx::ExEvaluation(__FILE__, __LINE__, imp.error);
    for (std::size_t i = 0; i < imp.slots.size(); ++i)
        imp.slots[i] = resolver(static_cast<int>(i));
    imp.time = time;
    imp.frame = time * rate;
    try {
        return imp.parser.Eval();
    } catch (mu::Parser::exception_type const& ex) {
        throw PiExpressionEx::ExEvaluation(__FILE__, __LINE__, ex.GetMsg());
    }
}

} // namespace Zr
