// PiTool: the declarations of a node type and the inputs and stored values made from them.
#include "piTool.h"

#include "cmRecorder.h"
#include "piStructuredInput.h"

#include <fstream>
#include <sstream>

namespace Zr {

PiTool::PiTool(std::string name, Uuid uuid, bool superTool)
    : _name(std::move(name)), _uuid(uuid), _superTool(superTool) {}

PiTool::~PiTool() = default;

void PiTool::addInputDeclaration(InputDeclaration declaration) {
    _inputs.push_back(std::move(declaration));
}

void PiTool::addStoredDeclaration(StoredDeclaration declaration) {
    _stored.push_back(std::move(declaration));
}

void PiTool::setUiFile(OsFilePath const& file) {
    _uiFile = file;
    _xmlDescription.reset();
}

std::string const& PiTool::getXmlDescription() const {
    if (!_xmlDescription) {
        std::string text;
        if (!_uiFile.isEmpty()) {
            std::ifstream in(_uiFile.getPath(), std::ios::binary);
            if (in) {
                std::ostringstream buffer;
                buffer << in.rdbuf();
                text = buffer.str();
            }
        }
        _xmlDescription = std::move(text);
    }
    return *_xmlDescription;
}

void PiTool::setXmlDescription(std::string text) {
    _xmlDescription = std::move(text);
}

RCShdPtr<PiInput> PiTool::createInput(InputDeclaration const& d) {
    RCShdPtr<PiInput> input;
    if (d.type == PiInput::Type::Structured) {
        input =
            makeShared<PiStructuredInput>(d.name, d.parts, d.minimum, d.maximum, d.defaultValue);
    } else {
        input = makeShared<PiInput>(d.name, d.type);
        if (d.type == PiInput::Type::String) {
            input->setDefaultString(d.defaultString);
        } else {
            input->setRange(d.minimum, d.maximum);
            input->setDefault(d.defaultValue);
        }
    }
    if (!d.displayName.empty())
        input->setDisplayName(d.displayName);
    if (d.policy)
        input->setPolicy(d.policy);
    // A new input starts at its default; an undo scope open around the making of a node has
    // nothing to restore in it.
    CmRecorder::SuppressGuard noRecording;
    input->reset();
    return input;
}

RCShdPtr<PiValue> PiTool::createStoredValue(StoredDeclaration const& d) {
    RCShdPtr<PiValue> value = makeShared<PiValue>(d.name, d.type);
    if (!d.defaultText.empty())
        value->setFromString(d.defaultText);
    return value;
}

} // namespace Zr
