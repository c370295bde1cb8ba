// The kinds of statistics: StatResourceType names one and holds the StatContainerFactory that
// makes its container; StatResourceRegistry numbers them.
#pragma once

#include "lkSingleton.h"
#include "statContainer.h"

#include <functional>
#include <map>
#include <mutex>
#include <string>

namespace Zr {

class StatContainerFactory {
public:
    using Function = std::function<RCShdPtr<StatContainerBase>(std::string const& name)>;
    explicit StatContainerFactory(Function make) : _make(std::move(make)) {}
    RCShdPtr<StatContainerBase> create(std::string const& name) const { return _make(name); }

    // A factory of containers of type C.
    template <class C>
    static StatContainerFactory of() {
        return StatContainerFactory(
            [](std::string const& name) { return RCShdPtr<StatContainerBase>(new C(name)); });
    }

private:
    Function _make;
};

class StatResourceType {
public:
    StatResourceType(int id, std::string name, StatContainerFactory factory)
        : _id(id), _name(std::move(name)), _factory(std::move(factory)) {}
    int getId() const { return _id; }
    std::string const& getName() const { return _name; }
    RCShdPtr<StatContainerBase> createContainer() const { return _factory.create(_name); }

private:
    int _id;
    std::string _name;
    StatContainerFactory _factory;
};

class StatResourceRegistry {
public:
    static StatResourceRegistry& getInstance() {
        return LkSingleton<StatResourceRegistry>::getInstance();
    }

    // Returns the id of the type; a name registered before keeps its id and first factory.
    int registerResourceType(std::string const& name, StatContainerFactory const& factory);
    // Null when no type has that id.
    StatResourceType const* getType(int id) const;
    // -1 for an unknown name.
    int findType(std::string const& name) const;

private:
    friend class LkSingleton<StatResourceRegistry>;
    StatResourceRegistry();
    void add(int id, std::string const& name, StatContainerFactory const& factory);

    mutable std::mutex _mutex;
    std::map<int, StatResourceType> _types;
    int _nextId;
};

} // namespace Zr
