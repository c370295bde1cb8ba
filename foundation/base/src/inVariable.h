// Package variables: a named value with a default that the definitions file, the environment
// and the command line may set, each under the aliases the variable declares. Later sources
// win: default, definitions file, environment, command line, then a value set by the program.
#pragma once

#include "osFilePath.h"

#include <iosfwd>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Zr {

// The contexts an alias lives in.
struct InInitDef {
    static constexpr char const* contextName = "definitions file";
};
struct InInitEnv {
    static constexpr char const* contextName = "environment";
};
struct InInitArg {
    static constexpr char const* contextName = "command line";
};

// Where a variable's value came from, in increasing precedence.
enum class InValueSource { Default, Definitions, Environment, CommandLine, Program };

// One name of a variable in one context, with the help text shown for it.
class InAlias {
public:
    InValueSource getSource() const { return _source; }
    char const* getContextName() const { return _contextName; }
    std::string const& getName() const { return _name; }
    std::string const& getHelp() const { return _help; }

protected:
    InAlias(InValueSource source, char const* contextName, std::string name, std::string help)
        : _source(source), _contextName(contextName), _name(std::move(name)),
          _help(std::move(help)) {}

private:
    InValueSource _source;
    char const* _contextName;
    std::string _name;
    std::string _help;
};

template <class Context>
class InContextAlias : public InAlias {
public:
    InContextAlias(std::string name, std::string help = std::string())
        : InAlias(sourceOf(), Context::contextName, std::move(name), std::move(help)) {}

private:
    static constexpr InValueSource sourceOf() {
        if constexpr (std::is_same_v<Context, InInitEnv>)
            return InValueSource::Environment;
        else if constexpr (std::is_same_v<Context, InInitArg>)
            return InValueSource::CommandLine;
        else
            return InValueSource::Definitions;
    }
};

// An environment variable name ("ZR_NO_SPLASH").
using InEnvAlias = InContextAlias<InInitEnv>;
// A command-line option name without dashes ("nosplash").
using InArgAlias = InContextAlias<InInitArg>;
// A key of the definitions file.
using InDefAlias = InContextAlias<InInitDef>;

class InVariableBase {
public:
    virtual ~InVariableBase();
    InVariableBase(InVariableBase const&) = delete;
    InVariableBase& operator=(InVariableBase const&) = delete;

    std::string const& getName() const { return _name; }
    std::string const& getDescription() const { return _description; }
    std::vector<InAlias> const& getAliases() const { return _aliases; }
    // The current value as text ("1"/"0" for a bool).
    virtual std::string getValueText() const = 0;
    virtual std::string getDefaultText() const = 0;
    // "bool", "int", "double" or "string".
    virtual char const* getTypeName() const = 0;

    // True when anything but the default gave the value.
    bool isSet() const { return _source != InValueSource::Default; }
    InValueSource getSource() const { return _source; }
    // Sets the value from a text as the program; false, value unchanged, when it does not parse.
    bool setValueText(std::string const& text);
    // Reads the definitions, environment and command line again. A value set by the program
    // stays.
    void refresh();

    // Every variable alive, in creation order.
    static std::vector<InVariableBase*> getAll();
    static InVariableBase* find(std::string const& name);

    // The command line (argv[0] is the program and is skipped). Options are -name or --name
    // (a bool becomes true), --name=value or -name=value, and -name value or --name value for
    // the other types; "--" ends the options. Every variable is refreshed.
    static void setCommandLine(int argc, char const* const* argv);
    static void setCommandLine(int argc, char** argv);
    static void setCommandLine(std::vector<std::string> arguments);
    // The definitions file's key/value pairs; every variable is refreshed.
    static void setDefinitions(std::map<std::string, std::string> definitions);
    // Reads "key = value" lines ('#' comments, blank lines ignored); a malformed line is
    // reported as "<path>:<line>: ..." through ExStdout and skipped. False when unreadable.
    static bool loadDefinitionsFile(OsFilePath const& path);
    // One paragraph per variable: name, type, default, description and each alias's help.
    static void printHelp(std::ostream& os);

protected:
    InVariableBase(std::string name, std::vector<InAlias> aliases, std::string description);
    // Derived constructors call this last, once the value can be parsed into.
    void resolveAndRegister();
    void markSetByProgram() { _source = InValueSource::Program; }

    virtual bool parseText(std::string const& text) = 0;
    virtual void resetToDefault() = 0;
    // A flag takes no value on the command line: -name alone sets it.
    virtual bool isFlag() const { return false; }

private:
    void resolve();
    bool applyText(std::string const& text, InAlias const& alias, InValueSource source);

    std::string _name;
    std::vector<InAlias> _aliases;
    std::string _description;
    InValueSource _source = InValueSource::Default;
};

// Text conversions of the supported variable types; false when the text does not parse.
struct InValueText {
    // "1", "true", "yes", "on" / "0", "false", "no", "off", in any case.
    static bool parse(std::string const& text, bool& value);
    static bool parse(std::string const& text, int& value);
    static bool parse(std::string const& text, double& value);
    static bool parse(std::string const& text, std::string& value);
    static std::string format(bool value) { return value ? "1" : "0"; }
    static std::string format(int value);
    static std::string format(double value);
    static std::string format(std::string const& value) { return value; }
    static char const* typeName(bool const*) { return "bool"; }
    static char const* typeName(int const*) { return "int"; }
    static char const* typeName(double const*) { return "double"; }
    static char const* typeName(std::string const*) { return "string"; }
};

// A variable of type bool, int, double or std::string:
//   InVariable<bool> noSplash("kelvar::loginScreen::nosplash", false,
//       {InEnvAlias("ZR_NO_SPLASH", "When set to 1, disable the splash screen"),
//        InArgAlias("nosplash", "Disable the splash screen.")});
template <class T>
class InVariable : public InVariableBase {
public:
    InVariable(std::string name, T defaultValue, std::vector<InAlias> aliases = {},
               std::string description = std::string())
        : InVariableBase(std::move(name), std::move(aliases), std::move(description)),
          _default(defaultValue), _value(std::move(defaultValue)) {
        resolveAndRegister();
    }

    T const& getValue() const { return _value; }
    T const& getDefault() const { return _default; }
    // The program's value wins over every other source until the process ends.
    void setValue(T value) {
        _value = std::move(value);
        markSetByProgram();
    }

    std::string getValueText() const override { return InValueText::format(_value); }
    std::string getDefaultText() const override { return InValueText::format(_default); }
    char const* getTypeName() const override { return InValueText::typeName(&_value); }

protected:
    bool parseText(std::string const& text) override { return InValueText::parse(text, _value); }
    void resetToDefault() override { _value = _default; }
    bool isFlag() const override { return std::is_same_v<T, bool>; }

private:
    T _default;
    T _value;
};

} // namespace Zr
