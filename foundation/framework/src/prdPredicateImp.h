// PrdPredicateImp<T>: a test on a T written as a class, for tests that carry state or are
// combined; asPredicate() turns one into the PrdPredicate that filters take.
// PrdCompositePredicateImp<T> combines predicates: all must hold (And) or one must (Or).
#pragma once

#include "prdPredicate.h"
#include "rcBase.h"

#include <memory>
#include <utility>
#include <vector>

namespace Zr {

template <class T>
class PrdPredicateImp {
public:
    virtual ~PrdPredicateImp() = default;

    virtual bool test(T const& value) const = 0;
    // An independent copy: asPredicate() keeps one so that the function outlives this object.
    virtual OPtr<PrdPredicateImp> clone() const = 0;

    bool operator()(T const& value) const { return test(value); }

    PrdPredicate<T> asPredicate() const {
        std::shared_ptr<PrdPredicateImp const> copy(clone());
        return [copy](T const& value) { return copy->test(value); };
    }
};

template <class T>
class PrdCompositePredicateImp : public PrdPredicateImp<T> {
public:
    enum Mode { And, Or };

    explicit PrdCompositePredicateImp(Mode mode) : _mode(mode) {}
    PrdCompositePredicateImp(Mode mode, std::vector<PrdPredicate<T>> predicates)
        : _mode(mode), _predicates(std::move(predicates)) {}

    // An empty predicate fails an assertion: it would throw only when first called.
    void add(PrdPredicate<T> predicate) {
        ZR_ASSERT(static_cast<bool>(predicate));
        _predicates.push_back(std::move(predicate));
    }

    Mode getMode() const { return _mode; }
    int getNbPredicates() const { return static_cast<int>(_predicates.size()); }

    // With no predicates, And holds and Or doesn't. Evaluation stops at the first answer that
    // decides the result.
    bool test(T const& value) const override {
        for (PrdPredicate<T> const& predicate : _predicates) {
            bool const result = predicate(value);
            if (_mode == And && !result)
                return false;
            if (_mode == Or && result)
                return true;
        }
        return _mode == And;
    }

    OPtr<PrdPredicateImp<T>> clone() const override {
        return std::make_unique<PrdCompositePredicateImp>(*this);
    }

    static PrdPredicate<T> makeAnd(PrdPredicate<T> a, PrdPredicate<T> b) {
        return combine(And, std::move(a), std::move(b));
    }
    static PrdPredicate<T> makeOr(PrdPredicate<T> a, PrdPredicate<T> b) {
        return combine(Or, std::move(a), std::move(b));
    }

private:
    static PrdPredicate<T> combine(Mode mode, PrdPredicate<T> a, PrdPredicate<T> b) {
        PrdCompositePredicateImp composite(mode);
        composite.add(std::move(a));
        composite.add(std::move(b));
        return composite.asPredicate();
    }

    Mode _mode;
    std::vector<PrdPredicate<T>> _predicates;
};

} // namespace Zr
