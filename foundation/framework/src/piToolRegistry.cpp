// PiToolRegistry: reading tool files and keeping the registered tools.
#include "piToolRegistry.h"

#include "inPaths.h"
#include "lkSingleton.h"
#include "msgProtocol.h"
#include "xmlDocument.h"

#include <algorithm>
#include <filesystem>
#include <limits>

namespace Zr {

namespace {

// A bad entry of a tool file: reported, and the rest of the tool still loads.
ZR_DECLARE_EXCEPTION(ExBadEntry, ExBase);

[[noreturn]] void badEntry(std::string const& reason) {
    throw ExBadEntry(__FILE__, __LINE__, reason);
}

std::string describeEntry(XmlElement const& e) {
    std::string text = e.getNodeName();
    std::string name = e.getAttribute("name");
    if (!name.empty())
        text += " \"" + name + "\"";
    if (int line = e.getLine(); line > 0)
        text += " (line " + std::to_string(line) + ")";
    return text;
}

std::string trim(std::string const& s) {
    std::size_t b = s.find_first_not_of(" \t\r\n");
    if (b == std::string::npos)
        return {};
    std::size_t e = s.find_last_not_of(" \t\r\n");
    return s.substr(b, e - b + 1);
}

std::vector<std::string> splitList(std::string const& text) {
    std::vector<std::string> items;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t comma = text.find(',', start);
        std::string item = trim(text.substr(start, comma - start));
        if (!item.empty())
            items.push_back(item);
        if (comma == std::string::npos)
            break;
        start = comma + 1;
    }
    return items;
}

// Reads a number attribute; absent leaves `value`, present but not a number is a bad entry.
void readNumber(XmlElement const& e, char const* attribute, double& value) {
    if (!e.hasAttribute(attribute))
        return;
    if (!e.getAttribute(attribute, value))
        badEntry(std::string(attribute) + " is not a number: \"" + e.getAttribute(attribute) +
                 "\"");
}

void checkEntryName(std::string const& name) {
    if (name.empty())
        badEntry("no name");
    if (name.find('.') != std::string::npos)
        badEntry("name with '.'");
}

PiInput::Type readInputType(std::string const& text) {
    if (text.empty() || text == "double")
        return PiInput::Type::Double;
    if (text == "int")
        return PiInput::Type::Int;
    if (text == "bool")
        return PiInput::Type::Bool;
    if (text == "string")
        return PiInput::Type::String;
    if (text == "structured")
        return PiInput::Type::Structured;
    badEntry("unknown type \"" + text + "\"");
}

PiValue::Type readStoredType(std::string const& text) {
    static std::pair<char const*, PiValue::Type> const types[] = {
        {"double", PiValue::Type::Double}, {"int32", PiValue::Type::Int32},
        {"int64", PiValue::Type::Int64},   {"bool", PiValue::Type::Bool},
        {"string", PiValue::Type::String}, {"doubleArray", PiValue::Type::DoubleArray}};
    for (auto const& [name, type] : types)
        if (text == name)
            return type;
    badEntry("unknown type \"" + text + "\"");
}

PiTool::InputDeclaration readInput(XmlElement const& e) {
    PiTool::InputDeclaration d;
    d.name = e.getAttribute("name");
    checkEntryName(d.name);
    d.type = readInputType(e.getAttribute("type"));
    d.displayName = e.getAttribute("display");

    std::vector<std::string> labels;
    for (XmlElement const& label : e.getElementsByTagName("Label"))
        labels.push_back(label.getDataMB());

    switch (d.type) {
    case PiInput::Type::Bool:
        d.minimum = 0.0;
        d.maximum = 1.0;
        break;
    case PiInput::Type::Int:
        if (!labels.empty()) {
            d.minimum = 0.0;
            d.maximum = static_cast<double>(labels.size() - 1);
        } else {
            d.minimum = std::numeric_limits<int>::min();
            d.maximum = std::numeric_limits<int>::max();
        }
        break;
    case PiInput::Type::String:
        break;
    case PiInput::Type::Double:
    case PiInput::Type::Structured:
        d.minimum = -std::numeric_limits<double>::max();
        d.maximum = std::numeric_limits<double>::max();
        break;
    }

    if (d.type == PiInput::Type::String) {
        d.defaultString = e.getAttribute("default");
        if (!labels.empty()) {
            auto policy = makeShared<PiEnumPolicy>(labels);
            if (d.defaultString.empty())
                d.defaultString = labels.front();
            else if (policy->findLabel(d.defaultString) < 0)
                badEntry("default \"" + d.defaultString + "\" is none of the labels");
            d.policy = policy;
        }
    } else {
        if (d.type != PiInput::Type::Bool) {
            readNumber(e, "min", d.minimum);
            readNumber(e, "max", d.maximum);
        }
        readNumber(e, "default", d.defaultValue);
        if (d.minimum > d.maximum)
            badEntry("min above max");
        if (d.defaultValue < d.minimum || d.defaultValue > d.maximum)
            badEntry("default outside the range");
    }

    if (d.type == PiInput::Type::Int && !labels.empty())
        d.policy = makeShared<PiTypedInputPolicy<int>>(labels);
    if (d.type == PiInput::Type::Bool) {
        if (labels.size() == 2)
            d.policy = makeShared<PiBoolInputPolicy>(labels[0], labels[1]);
        else if (labels.empty())
            d.policy = makeShared<PiBoolInputPolicy>();
        else
            badEntry("a bool input takes two labels");
    }
    if (d.type == PiInput::Type::Structured) {
        d.parts = splitList(e.getAttribute("parts"));
        if (d.parts.empty())
            badEntry("a structured input needs parts");
    } else if (e.hasAttribute("parts")) {
        badEntry("parts given to an input that is not structured");
    }
    std::string policy = e.getAttribute("policy");
    if (policy == "shape2d")
        d.policy = makeShared<PiShape2dInputPolicy>();
    else if (!policy.empty())
        badEntry("unknown policy \"" + policy + "\"");
    return d;
}

PiTool::StoredDeclaration readStored(XmlElement const& e) {
    PiTool::StoredDeclaration d;
    d.name = e.getAttribute("name");
    checkEntryName(d.name);
    d.type = readStoredType(e.getAttribute("type"));
    d.defaultText = e.getAttribute("default");
    try {
        PiTool::createStoredValue(d);
    } catch (PiValueEx::ExBadText const&) {
        badEntry("default \"" + d.defaultText + "\" is no " + e.getAttribute("type"));
    }
    return d;
}

} // namespace

PiToolRegistry& PiToolRegistry::getInstance() {
    PiToolRegistry& registry = LkSingleton<PiToolRegistry>::getInstance();
    if (!registry._defaultsLoaded) {
        registry._defaultsLoaded = true;
        registry.loadDirectory(InPaths::getResourcesDir() + OsFilePath("nodes"));
    }
    return registry;
}

PiToolRegistry::PiToolRegistry() = default;

PiToolRegistry::~PiToolRegistry() = default;

void PiToolRegistry::report(std::string const& text) {
    _loadErrors.push_back(text);
    MsgProtocol::display(MsgWarning(text));
}

int PiToolRegistry::loadDirectory(OsFilePath const& directory) {
    std::error_code ec;
    if (!std::filesystem::is_directory(directory.getPath(), ec)) {
        report("Tool directory not found: " + directory.toString());
        return 0;
    }
    std::vector<std::filesystem::path> files;
    for (auto const& entry : std::filesystem::directory_iterator(directory.getPath(), ec))
        if (entry.is_regular_file(ec) && entry.path().extension() == ".xml")
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());

    int loaded = 0;
    for (auto const& file : files) {
        try {
            if (registerTool(readToolFile(OsFilePath(file))))
                ++loaded;
        } catch (ExBase const& e) {
            report("Tool file " + file.string() + " not loaded: " + e.getReason());
        }
    }
    return loaded;
}

RCShdPtr<PiTool> PiToolRegistry::readToolFile(OsFilePath const& file) {
    std::optional<XmlDocument> document;
    try {
        document.emplace(file);
    } catch (XmlEx::ExSyntaxError const& e) {
        throw PiToolRegistryEx::ExBadToolFile(__FILE__, __LINE__, e.getReason());
    }
    XmlElement root = document->getRoot();
    if (root.getNodeName() != "Tool")
        throw PiToolRegistryEx::ExBadToolFile(
            __FILE__, __LINE__, "the root element is <" + root.getNodeName() + ">, not <Tool>");
    std::string name = root.getAttribute("name");
    if (name.empty())
        throw PiToolRegistryEx::ExBadToolFile(__FILE__, __LINE__, "the tool has no name");
    Uuid uuid;
    try {
        uuid = Uuid::fromString(root.getAttribute("uuid"));
    } catch (UuidEx::ExBadUuid const& e) {
        throw PiToolRegistryEx::ExBadToolFile(__FILE__, __LINE__, e.getReason());
    }

    RCShdPtr<PiTool> tool = makeShared<PiTool>(name, uuid, root.isTrue("super", false));
    tool->setSourceFile(file);
    std::vector<std::string> names;
    for (XmlElement const& entry : root.getChildren()) {
        try {
            std::string const tag = entry.getNodeName();
            if (tag == "Input" || tag == "Stored") {
                std::string const entryName = entry.getAttribute("name");
                if (std::find(names.begin(), names.end(), entryName) != names.end())
                    badEntry("name in use");
                if (tag == "Input")
                    tool->addInputDeclaration(readInput(entry));
                else
                    tool->addStoredDeclaration(readStored(entry));
                names.push_back(entryName);
            } else if (tag == "UserInterface") {
                std::string const uiFile = entry.getAttribute("file");
                if (uiFile.empty())
                    badEntry("no file");
                // The interface lies beside the tool file or below it: a relative path may not
                // climb out of its directory.
                std::filesystem::path const relative =
                    std::filesystem::path(uiFile).lexically_normal();
                if (relative.is_relative() && !relative.empty() && *relative.begin() == "..")
                    badEntry("the file \"" + uiFile + "\" leaves the tool file's directory");
                OsFilePath path = file.getDirectoryName() + OsFilePath(uiFile);
                tool->setUiFile(path);
                std::error_code ec;
                if (!std::filesystem::is_regular_file(path.getPath(), ec))
                    badEntry("file not found: " + path.toString());
            } else {
                badEntry("unknown entry");
            }
        } catch (ExBadEntry const& e) {
            report("Tool file " + file.toString() + ", entry " + describeEntry(entry) + ": " +
                   e.getReason());
        }
    }
    return tool;
}

bool PiToolRegistry::registerTool(RCShdPtr<PiTool> const& tool) {
    ZR_ASSERT(!tool.isNull());
    std::string const where = tool->getSourceFile().isEmpty()
                                  ? std::string()
                                  : " (" + tool->getSourceFile().toString() + ")";
    if (_tools.count(tool->getName())) {
        report("Tool name in use: " + tool->getName() + where);
        return false;
    }
    if (findToolByUuid(tool->getUuid())) {
        report("Tool uuid in use: " + tool->getUuid().toString() + where);
        return false;
    }
    _tools[tool->getName()] = tool;
    return true;
}

bool PiToolRegistry::unregisterTool(std::string const& name) {
    return _tools.erase(name) > 0;
}

RCShdPtr<PiTool const> PiToolRegistry::findTool(std::string const& name) const {
    auto it = _tools.find(name);
    return it == _tools.end() ? nullptr : RCShdPtr<PiTool const>(it->second);
}

RCShdPtr<PiTool const> PiToolRegistry::findToolByUuid(Uuid const& uuid) const {
    for (auto const& [name, tool] : _tools)
        if (tool->getUuid() == uuid)
            return tool;
    return nullptr;
}

std::vector<RCShdPtr<PiTool const>> PiToolRegistry::getTools() const {
    std::vector<RCShdPtr<PiTool const>> tools;
    for (auto const& [name, tool] : _tools)
        tools.emplace_back(tool);
    return tools;
}

} // namespace Zr
