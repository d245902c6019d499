// The COM side of a component that a target plays: one object with several interfaces, whose references are counted
// exactly. Whoever gives back one too many, or calls what is gone, ends the process.
#pragma once

#include "cape/com/cape_open.h"
#include "fuzz/input.h"
#include "platform/platform.h"
#include "tests/support/without_names.h"

namespace fuzz {

class Component {
public:
    Component() = default;
    Component(const Component &) = delete;
    Component &operator=(const Component &) = delete;
    virtual ~Component() = default;

    virtual HRESULT query(REFIID iid, void **object) = 0;
    ULONG addReference() { return static_cast<ULONG>(++held); }
    ULONG giveBack()
    {
        FUZZ_CHECK(held > 0);
        if (--held == 0)
            lastReferenceGone();
        return static_cast<ULONG>(held);
    }
    long references() const { return held; }

protected:
    virtual void lastReferenceGone() {}

private:
    long held = 0;
};

// IUnknown of one interface of a component.
template <class Interface> class UnknownFacet : public Interface {
public:
    explicit UnknownFacet(Component &component) : owner(component) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override { return owner.query(iid, object); }
    ULONG STDMETHODCALLTYPE AddRef() override { return owner.addReference(); }
    ULONG STDMETHODCALLTYPE Release() override { return owner.giveBack(); }

private:
    Component &owner;
};

// The same of an interface that can be called by name.
template <class Interface> class Facet : public UnknownFacet<WithoutNames<Interface>> {
public:
    using UnknownFacet<WithoutNames<Interface>>::UnknownFacet;
};

} // namespace fuzz
