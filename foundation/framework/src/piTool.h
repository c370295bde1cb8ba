// PiTool: a node type, the declarations a tool node is made from: its name, Uuid, inputs,
// stored values and the file of its panel description.
#pragma once

#include "osFilePath.h"
#include "piInput.h"
#include "piValue.h"
#include "uuid.h"

#include <optional>
#include <string>
#include <vector>

namespace Zr {

class PiTool : public RCObject {
public:
    struct InputDeclaration {
        std::string name;
        // Empty: the name is shown.
        std::string displayName;
        PiInput::Type type = PiInput::Type::Double;
        double minimum = 0.0;
        double maximum = 1.0;
        double defaultValue = 0.0;
        std::string defaultString;
        // The part names of a structured input.
        std::vector<std::string> parts;
        RCShdPtr<PiInputPolicy const> policy;
    };
    struct StoredDeclaration {
        std::string name;
        PiValue::Type type = PiValue::Type::Double;
        // The default in the value's text form; empty gives the type's zero.
        std::string defaultText;
    };

    PiTool(std::string name, Uuid uuid, bool superTool = false);
    ~PiTool() override;

    std::string const& getName() const { return _name; }
    Uuid const& getUuid() const { return _uuid; }
    // A super tool is a macro made of other tools.
    bool isSuperTool() const { return _superTool; }

    std::vector<InputDeclaration> const& getInputDeclarations() const { return _inputs; }
    void addInputDeclaration(InputDeclaration declaration);
    std::vector<StoredDeclaration> const& getStoredDeclarations() const { return _stored; }
    void addStoredDeclaration(StoredDeclaration declaration);

    // The file the tool was read from; empty for a tool made in code.
    OsFilePath const& getSourceFile() const { return _sourceFile; }
    void setSourceFile(OsFilePath const& file) { _sourceFile = file; }

    // The panel description: the text of the UI file (read on first use and kept), or the text
    // set in code. Empty when there is none or the file cannot be read.
    OsFilePath const& getUiFile() const { return _uiFile; }
    void setUiFile(OsFilePath const& file);
    std::string const& getXmlDescription() const;
    void setXmlDescription(std::string text);

    // Makes the input a node of this tool gets for `declaration`.
    static RCShdPtr<PiInput> createInput(InputDeclaration const& declaration);
    // Makes the stored value; a default text that does not read raises PiValueEx::ExBadText.
    static RCShdPtr<PiValue> createStoredValue(StoredDeclaration const& declaration);

private:
    std::string _name;
    Uuid _uuid;
    bool _superTool;
    std::vector<InputDeclaration> _inputs;
    std::vector<StoredDeclaration> _stored;
    OsFilePath _sourceFile;
    OsFilePath _uiFile;
    mutable std::optional<std::string> _xmlDescription;
};

} // namespace Zr
