// PiToolRegistry: the registered node types, read from the tool files (*.xml) of a directory,
// by default "nodes" under the resources directory.
#pragma once

#include "osFilePath.h"
#include "piTool.h"

#include <map>
#include <string>
#include <vector>

namespace Zr {

struct PiToolRegistryEx {
    // A tool file that cannot be read as a whole (bad XML, no name, bad Uuid).
    ZR_DECLARE_EXCEPTION(ExBadToolFile, ExBase);
};

// A tool file declares one tool:
//     <Tool name="Blur" uuid="..." super="false">
//       <Input name="radius" type="double" min="0" max="100" default="2" display="Radius"/>
//       <Input name="quality" type="int" min="0" max="2" default="1">
//         <Label>Low</Label><Label>Medium</Label><Label>High</Label></Input>
//       <Input name="gain" type="structured" parts="Red,Green,Blue" default="1" max="4"/>
//       <Input name="filter" type="string" default="Linear"><Label>...</Label></Input>
//       <Stored name="passes" type="int32" default="1"/>
//       <UserInterface file="ui/blur.xml"/>
//     </Tool>
// Input types: double, int, bool, string, structured; labels give an int input a menu
// (PiTypedInputPolicy<int>), a string input a PiEnumPolicy and a bool input its two labels;
// policy="shape2d" marks a 2D shape. Stored types: double, int32, int64, bool, string,
// doubleArray. The UI file is relative to the tool file, and may not climb out of its
// directory ("../x.xml" is a bad entry).
//
// Problems are reported with MsgWarning through MsgProtocol::display, naming the file and the
// entry, and kept in getLoadErrors(): a bad entry is skipped and the rest of its tool loads; a
// bad file is skipped and the other files load; a second tool of a name already registered is
// skipped.
class PiToolRegistry {
public:
    // The process's registry; its first use loads InPaths::getResourcesDir()/nodes.
    static PiToolRegistry& getInstance();

    PiToolRegistry();
    ~PiToolRegistry();
    PiToolRegistry(PiToolRegistry const&) = delete;
    PiToolRegistry& operator=(PiToolRegistry const&) = delete;

    // Loads every *.xml file of the directory, in name order; returns the number of tools
    // registered.
    int loadDirectory(OsFilePath const& directory);
    // Reads one tool file; a file that cannot be read raises PiToolRegistryEx::ExBadToolFile
    // (bad entries are reported and skipped). The tool is not registered.
    RCShdPtr<PiTool> readToolFile(OsFilePath const& file);

    // False, with a report, when a tool of that name is registered already.
    bool registerTool(RCShdPtr<PiTool> const& tool);
    bool unregisterTool(std::string const& name);

    RCShdPtr<PiTool const> findTool(std::string const& name) const;
    RCShdPtr<PiTool const> findToolByUuid(Uuid const& uuid) const;
    // Sorted by name.
    std::vector<RCShdPtr<PiTool const>> getTools() const;

    // The reports of the loads so far, in order.
    std::vector<std::string> const& getLoadErrors() const { return _loadErrors; }
    void clearLoadErrors() { _loadErrors.clear(); }

private:
    void report(std::string const& text);

    std::map<std::string, RCShdPtr<PiTool>> _tools;
    std::vector<std::string> _loadErrors;
    bool _defaultsLoaded = false;
};

} // namespace Zr
