// Owner of one reference on a COM interface.
#pragma once

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

    void reset()
    {
        if (Interface *released = std::exchange(pointer, nullptr))
            released->Release();
    }
    void attach(Interface *owned)
    {
        Interface *released = std::exchange(pointer, owned);
        if (released)
            released->Release();
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
        const HRESULT hr = object->QueryInterface(InterfaceId<Interface>, outVoid());
        if (FAILED(hr))
            pointer = nullptr;
        return SUCCEEDED(hr) && !pointer ? E_NOINTERFACE : hr;
    }

private:
    Interface *pointer = nullptr;
};
