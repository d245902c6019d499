// Owner of one reference on a COM interface.
#pragma once

#include "cape/com/component_call.h"
#include "platform/platform.h"

#include <utility>

template <class Interface> class ComPointer {
public:
    ComPointer() = default;
    // Takes over the reference that the pointer stands for.
    explicit ComPointer(Interface *owned) : pointer(owned) {}
    ComPointer(const ComPointer &) = delete;
    ComPointer &operator=(const ComPointer &) = delete;
    ComPointer(ComPointer &&other) noexcept : pointer(other.detach()) {}
    ComPointer &operator=(ComPointer &&other) noexcept
    {
        attach(other.detach());
        return *this;
    }
    ~ComPointer() { reset(); }

    Interface *get() const { return pointer; }
    Interface *operator->() const { return pointer; }
    explicit operator bool() const { return pointer != nullptr; }

    void reset() { attach(nullptr); }
    void attach(Interface *owned)
    {
        if (Interface *released = std::exchange(pointer, owned))
            CallComponent([released] { return released->Release(); });
    }
    Interface *detach() { return std::exchange(pointer, nullptr); }

    // For the out-parameters of COM: releases what is held and gives the address of the null.
    Interface **out()
    {
        reset();
        return &pointer;
    }
    void **outVoid() { return reinterpret_cast<void **>(out()); }

    // Asks `object`, which may be null, for this interface; the result of QueryInterface, and
    // nothing is held when it failed. A success that gives nothing is a failure.
    HRESULT queryFrom(IUnknown *object)
    {
        if (!object) {
            reset();
            return E_POINTER;
        }
        void **const result = outVoid();
        const HRESULT hr =
            CallComponent([object, result] { return object->QueryInterface(InterfaceId<Interface>, result); });
        if (FAILED(hr))
            pointer = nullptr;
        return SUCCEEDED(hr) && !pointer ? E_NOINTERFACE : hr;
    }

private:
    Interface *pointer = nullptr;
};
