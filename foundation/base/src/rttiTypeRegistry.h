// RttiTypeRegistryImp<Tag>: the registry of the run-time types of one family, a singleton built
// through LkSingleton; RttiGenType0 and RttiGenType1: the record of one class's type in it, with
// no base type or with one.
#pragma once

#include "lkSingleton.h"
#include "rcBase.h"
#include "rttiTypeBase.h"

#include <memory>
#include <typeinfo>

namespace Zr {

// What the registries of all families share: the types in order of registration, and the
// number the next one gets. Types must be deregistered before the registry goes: its destructor
// asserts "_types.empty()", so a package that registers types deregisters them at its exit.
class RttiTypeRegistryBase {
public:
    RttiTypeRegistryBase(RttiTypeRegistryBase const&) = delete;
    RttiTypeRegistryBase& operator=(RttiTypeRegistryBase const&) = delete;

    // Removes the type of that name; raises RttiEx::ExNotFound for an unknown name. A type
    // that others derive from goes after them.
    void deregisterType(LiString const& name);
    bool isRegistered(LiString const& name) const { return find(name) != nullptr; }
    int getNbTypes() const { return static_cast<int>(_types.size()); }
    int getNextTypeId() const { return _nextId; }
    void dump(std::ostream& os) const;

protected:
    explicit RttiTypeRegistryBase(std::string familyName);
    virtual ~RttiTypeRegistryBase() noexcept(false);

    // Adds `type`, which has the next number, after checking its name is free.
    RttiTypeBase const& add(std::unique_ptr<RttiTypeBase> type);
    RttiTypeBase const* find(LiString const& name) const;
    RttiTypeBase const& get(LiString const& name) const;
    int takeId() const { return _nextId; }

private:
    std::string _familyName;
    int _nextId = 1;
    std::vector<std::unique_ptr<RttiTypeBase>> _types;
};

template <class Tag>
class RttiTypeRegistryImp : public RttiTypeRegistryBase {
public:
    RttiTypeRegistryImp() : RttiTypeRegistryBase(RCExUtil::demangle(typeid(Tag).name())) {}

    static RttiTypeRegistryImp& getInstance() {
        return LkSingleton<RttiTypeRegistryImp>::getInstance();
    }

    // Registers a type under `name`, derived from `base` when one is given; raises
    // RttiEx::ExAlreadyExists when the name is taken.
    RttiType<Tag> const& registerType(LiString const& name, RttiType<Tag> const* base) {
        auto type = std::make_unique<RttiType<Tag>>(takeId(), name);
        if (base)
            type->addAncestor(*base);
        return static_cast<RttiType<Tag> const&>(add(std::move(type)));
    }
    // The type of that name; raises RttiEx::ExNotFound for an unknown name.
    RttiType<Tag> const& findType(LiString const& name) const {
        return static_cast<RttiType<Tag> const&>(get(name));
    }
};

// The type of class T in the registry of Tag, with no base type. registerType and
// deregisterType belong to the start-up and exit of the package that owns T.
template <class T, class Tag>
class RttiGenType0 {
public:
    static RttiType<Tag> const& registerType(LiString const& name) {
        return hold(RttiTypeRegistryImp<Tag>::getInstance().registerType(name, nullptr));
    }
    static void deregisterType() {
        if (RttiType<Tag> const* type = _type) {
            _type = nullptr;
            RttiTypeRegistryImp<Tag>::getInstance().deregisterType(type->getName());
        }
    }
    static bool isRegistered() { return _type != nullptr; }
    static RttiType<Tag> const& getType() {
        ZR_ASSERT_TEXT(_type != nullptr, "_type != 0");
        return *_type;
    }

protected:
    static RttiType<Tag> const& hold(RttiType<Tag> const& type) {
        _type = &type;
        return type;
    }

private:
    inline static RttiType<Tag> const* _type = nullptr;
};

// The type of class T in the registry of Tag, derived from the type that BaseGen (the RttiGen
// of T's base class) holds, which must be registered first.
template <class T, class BaseGen, class Tag>
class RttiGenType1 : public RttiGenType0<T, Tag> {
public:
    static RttiType<Tag> const& registerType(LiString const& name) {
        return RttiGenType0<T, Tag>::hold(
            RttiTypeRegistryImp<Tag>::getInstance().registerType(name, &BaseGen::getType()));
    }
};

} // namespace Zr
