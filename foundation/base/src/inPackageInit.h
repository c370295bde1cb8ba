// InPackageInit: a named package of the application with its start-up and shut-down steps and
// the packages it depends on; registered packages are started by InInitGuard in dependence
// order. Also the package type records (ZrInit, InInit) and the singleton exceptions.
#pragma once

#include "exBase.h"

#include <functional>
#include <string>
#include <vector>

namespace Zr {

struct InPackageEx {
    // A dependency on a package that is not registered, or a cycle of dependencies.
    ZR_DECLARE_EXCEPTION(ExDependency, ExBase);
    // A second package registered under a name already taken.
    ZR_DECLARE_EXCEPTION(ExDuplicate, ExBase);
};

struct InSingletonEx {
    ZR_DECLARE_EXCEPTION(ExAlreadyInitialized, ExBase);
    ZR_DECLARE_EXCEPTION(ExNotInitialized, ExBase);
    ZR_DECLARE_EXCEPTION(ExAlreadyDestroyed, ExBase);
};

class InPackageInit {
public:
    InPackageInit(std::string name, std::function<void()> init, std::function<void()> exit);

    // Names a package whose start-up must run before this one's.
    InPackageInit& addDependency(std::string const& name);
    // Adds a copy of this package to the process-wide registry, usually from the static
    // initialisation of the library that owns it. Raises InPackageEx::ExDuplicate when the
    // name is taken.
    void registerPackage() const;

    std::string const& getName() const { return _name; }
    std::vector<std::string> const& getDependencies() const { return _dependencies; }

    static bool isRegistered(std::string const& name);
    // True between the end of the package's start-up and the start of its exit.
    static bool isStarted(std::string const& name);
    // Removes a package that is not started (tests, unloaded plug-ins); unknown names are ignored.
    static void unregisterPackage(std::string const& name);
    // The registered packages in start-up order: dependencies first, otherwise registration
    // order. Raises InPackageEx::ExDependency on an unknown dependency or a cycle.
    static std::vector<std::string> getStartOrder();

private:
    friend class InInitGuard;
    // Runs the start-up of every registered package; on a failure stops those started and
    // rethrows.
    static void startAll();
    // Runs the exits in reverse start-up order; failures are reported, not thrown.
    static void stopAll();

    std::string _name;
    std::function<void()> _init;
    std::function<void()> _exit;
    std::vector<std::string> _dependencies;
};

// The record of a package type, named after its tag in ZrInit.
class InPackageType {
public:
    explicit InPackageType(char const* name) : _name(name) {}
    char const* getName() const { return _name; }

private:
    char const* _name;
};

// Tags of the toolkit's packages.
struct ZrInit {
    struct base {
        static constexpr char const* name = "base";
    };
    struct ui {
        static constexpr char const* name = "ui";
    };
    struct uiresources {
        static constexpr char const* name = "uiresources";
    };
    struct uitoolkit {
        static constexpr char const* name = "uitoolkit";
    };
    struct nodeUi {
        static constexpr char const* name = "nodeUi";
    };
};

template <class Tag>
struct InInit {
    static InPackageType const& getType() {
        static InPackageType const type(Tag::name);
        return type;
    }
};

} // namespace Zr
