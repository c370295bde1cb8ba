// PiExpressionServices and the expression interface of an input.
#include "piExpressionServices.h"

#include "piGraph.h"
#include "piSocketUtil.h"

namespace Zr {

PiInputExpression::PiInputExpression(RCShdPtr<PiInput> input, RCShdPtr<PiTimePath const> timePath)
    : _input(std::move(input)), _timePath(std::move(timePath)) {
    ZR_ASSERT(!_input.isNull());
}

PiInputExpression::~PiInputExpression() = default;

std::string PiInputExpression::getExpression() const {
    return _input->getExpression();
}

void PiInputExpression::setExpression(std::string const& text) {
    _input->setExpression(text);
}

double PiInputExpression::getTime() const {
    if (!_timePath.isNull())
        return _timePath->getTime();
    if (PiGraph const* graph = _input->getGraph())
        if (auto client = graph->getTimeClient())
            return client->getTime();
    return 0.0;
}

bool PiInputExpression::isValid() const {
    return getErrorMessage().empty();
}

std::string PiInputExpression::getErrorMessage() const {
    if (!_input->hasExpression())
        return {};
    // Evaluating records the reason of a failure: a name that finds no input, or a cycle.
    _input->evaluate(getTime());
    return _input->getExpressionError();
}

PiExpressionServices& PiExpressionServices::getInstance() {
    static PiExpressionServices instance;
    return instance;
}

std::string PiExpressionServices::getInputFullName(RCShdPtr<PiInput const> const& input) {
    return input.isNull() ? std::string() : input->getFullName();
}

std::string const& PiExpressionServices::getTisaneToken() {
    static std::string const token = "tisane:";
    return token;
}

bool PiExpressionServices::supportsExpressions(RCShdPtr<PiInput const> const& input) {
    return !input.isNull() && input->isNumeric() && !input->isConnected();
}

RCShdPtr<PiInputExpression>
PiExpressionServices::getExpressionInterface(RCShdPtr<PiInput> const& input,
                                             RCShdPtr<PiTimePath const> const& timePath) {
    if (!supportsExpressions(input))
        return nullptr;
    return makeShared<PiInputExpression>(input, timePath);
}

RCShdPtr<PiInput> PiExpressionServices::findInput(PiGraph const* graph,
                                                  std::string const& fullName) {
    if (!graph)
        return nullptr;
    return graph->findInput(PiSocketUtil::removeExpressionToken(fullName));
}

} // namespace Zr
