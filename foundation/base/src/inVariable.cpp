// Package variables: the registry, the stored command line and definitions, and resolution.
#include "inVariable.h"

#include "exBase.h"
#include "osEnv.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <limits>
#include <mutex>
#include <optional>
#include <ostream>

namespace Zr {

namespace {

struct VariableState {
    std::recursive_mutex _mutex;
    std::vector<InVariableBase*> _variables;
    std::vector<std::string> _arguments;
    std::map<std::string, std::string> _definitions;
};

VariableState& state() {
    // Never destroyed: variables that are statics of other libraries deregister during exit.
    static auto* s = new VariableState();
    return *s;
}

std::string trim(std::string const& s) {
    std::size_t b = s.find_first_not_of(" \t\r\n");
    if (b == std::string::npos)
        return std::string();
    std::size_t e = s.find_last_not_of(" \t\r\n");
    return s.substr(b, e - b + 1);
}

std::string lower(std::string s) {
    for (char& c : s)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return s;
}

// The value the command line gives under `name`, the last one if several; problems are
// reported.
std::optional<std::string> findArgument(std::vector<std::string> const& args,
                                        std::string const& name, bool isFlag) {
    std::optional<std::string> found;
    for (std::size_t i = 0; i < args.size(); ++i) {
        std::string const& token = args[i];
        if (token == "--")
            break;
        if (token.size() < 2 || token[0] != '-')
            continue;
        std::size_t start = token[1] == '-' ? 2 : 1;
        std::size_t eq = token.find('=', start);
        std::string key = token.substr(start, eq == std::string::npos ? eq : eq - start);
        if (key != name)
            continue;
        if (eq != std::string::npos) {
            found = token.substr(eq + 1);
        } else if (isFlag) {
            found = "1";
        } else if (i + 1 < args.size()) {
            found = args[++i];
        } else {
            ExStdout::printAtomically("Missing value for command-line option " + token);
        }
    }
    return found;
}

} // namespace

bool InValueText::parse(std::string const& text, bool& value) {
    std::string t = lower(trim(text));
    if (t == "1" || t == "true" || t == "yes" || t == "on") {
        value = true;
        return true;
    }
    if (t == "0" || t == "false" || t == "no" || t == "off") {
        value = false;
        return true;
    }
    return false;
}

bool InValueText::parse(std::string const& text, int& value) {
    auto parsed = OsEnv::parseInteger(text);
    if (!parsed || *parsed < std::numeric_limits<int>::min() ||
        *parsed > std::numeric_limits<int>::max())
        return false;
    value = static_cast<int>(*parsed);
    return true;
}

bool InValueText::parse(std::string const& text, double& value) {
    std::string t = trim(text);
    if (!t.empty() && t[0] == '+')
        t.erase(0, 1);
    double parsed = 0;
    auto [end, ec] = std::from_chars(t.data(), t.data() + t.size(), parsed);
    if (t.empty() || ec != std::errc() || end != t.data() + t.size())
        return false;
    value = parsed;
    return true;
}

bool InValueText::parse(std::string const& text, std::string& value) {
    value = text;
    return true;
}

std::string InValueText::format(int value) {
    return std::to_string(value);
}

std::string InValueText::format(double value) {
    char buffer[64];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, ec == std::errc() ? end : buffer);
}

InVariableBase::InVariableBase(std::string name, std::vector<InAlias> aliases,
                               std::string description)
    : _name(std::move(name)), _aliases(std::move(aliases)), _description(std::move(description)) {}

InVariableBase::~InVariableBase() {
    VariableState& s = state();
    std::lock_guard<std::recursive_mutex> lock(s._mutex);
    s._variables.erase(std::remove(s._variables.begin(), s._variables.end(), this),
                       s._variables.end());
}

void InVariableBase::resolveAndRegister() {
    VariableState& s = state();
    std::lock_guard<std::recursive_mutex> lock(s._mutex);
    resolve();
    s._variables.push_back(this);
}

bool InVariableBase::applyText(std::string const& text, InAlias const& alias,
                               InValueSource source) {
    if (parseText(text)) {
        _source = source;
        return true;
    }
    ExStdout::printAtomically("Invalid value \"" + text + "\" for " + alias.getName() + " (" +
                              alias.getContextName() + ") of " + _name + ": expected type " +
                              getTypeName() + "; keeping " + getValueText());
    return false;
}

void InVariableBase::resolve() {
    if (_source == InValueSource::Program)
        return;
    VariableState& s = state();
    resetToDefault();
    _source = InValueSource::Default;
    for (InValueSource source :
         {InValueSource::Definitions, InValueSource::Environment, InValueSource::CommandLine}) {
        for (InAlias const& alias : _aliases) {
            if (alias.getSource() != source)
                continue;
            std::optional<std::string> text;
            if (source == InValueSource::Definitions) {
                auto it = s._definitions.find(alias.getName());
                if (it != s._definitions.end())
                    text = it->second;
            } else if (source == InValueSource::Environment) {
                text = OsEnv::get(alias.getName());
                if (text && text->empty())
                    text.reset(); // set but empty counts as unset
            } else {
                text = findArgument(s._arguments, alias.getName(), isFlag());
            }
            if (text)
                applyText(*text, alias, source);
        }
    }
}

bool InVariableBase::setValueText(std::string const& text) {
    if (!parseText(text))
        return false;
    _source = InValueSource::Program;
    return true;
}

void InVariableBase::refresh() {
    std::lock_guard<std::recursive_mutex> lock(state()._mutex);
    resolve();
}

std::vector<InVariableBase*> InVariableBase::getAll() {
    VariableState& s = state();
    std::lock_guard<std::recursive_mutex> lock(s._mutex);
    return s._variables;
}

InVariableBase* InVariableBase::find(std::string const& name) {
    VariableState& s = state();
    std::lock_guard<std::recursive_mutex> lock(s._mutex);
    for (InVariableBase* v : s._variables)
        if (v->_name == name)
            return v;
    return nullptr;
}

void InVariableBase::setCommandLine(int argc, char const* const* argv) {
    std::vector<std::string> args;
    for (int i = 1; i < argc && argv; ++i)
        if (argv[i])
            args.emplace_back(argv[i]);
    setCommandLine(std::move(args));
}

void InVariableBase::setCommandLine(int argc, char** argv) {
    setCommandLine(argc, const_cast<char const* const*>(argv));
}

void InVariableBase::setCommandLine(std::vector<std::string> arguments) {
    VariableState& s = state();
    std::lock_guard<std::recursive_mutex> lock(s._mutex);
    s._arguments = std::move(arguments);
    for (InVariableBase* v : s._variables)
        v->resolve();
}

void InVariableBase::setDefinitions(std::map<std::string, std::string> definitions) {
    VariableState& s = state();
    std::lock_guard<std::recursive_mutex> lock(s._mutex);
    s._definitions = std::move(definitions);
    for (InVariableBase* v : s._variables)
        v->resolve();
}

bool InVariableBase::loadDefinitionsFile(OsFilePath const& path) {
    std::ifstream in(path.getPath());
    if (!in) {
        ExStdout::printAtomically(path.toString() + ": cannot read the definitions file");
        return false;
    }
    std::map<std::string, std::string> definitions;
    std::string line;
    int number = 0;
    while (std::getline(in, line)) {
        ++number;
        std::string t = trim(line);
        if (t.empty() || t[0] == '#')
            continue;
        std::size_t eq = t.find('=');
        std::string key = eq == std::string::npos ? std::string() : trim(t.substr(0, eq));
        if (key.empty()) {
            ExStdout::printAtomically(path.toString() + ":" + std::to_string(number) +
                                      ": expected key = value");
            continue;
        }
        definitions[key] = trim(t.substr(eq + 1));
    }
    setDefinitions(std::move(definitions));
    return true;
}

void InVariableBase::printHelp(std::ostream& os) {
    for (InVariableBase* v : getAll()) {
        os << v->_name << " (" << v->getTypeName() << ", default " << v->getDefaultText() << ")";
        if (!v->_description.empty())
            os << ": " << v->_description;
        os << '\n';
        for (InAlias const& a : v->_aliases) {
            os << "    ";
            if (a.getSource() == InValueSource::CommandLine)
                os << '-';
            os << a.getName() << " (" << a.getContextName() << ")";
            if (!a.getHelp().empty())
                os << ": " << a.getHelp();
            os << '\n';
        }
    }
}

} // namespace Zr
