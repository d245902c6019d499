// The body of a method that a component calls. Its compiler may be another than ours, so no exception may reach it.
#pragma once

#include "platform/platform.h"

#include <new>
#include <stdexcept>

template <class Body> HRESULT GuardedCall(Body body) noexcept
{
    try {
        return body();
    } catch (const std::bad_alloc &) {
        return E_OUTOFMEMORY;
    } catch (const std::length_error &) { // a text longer than a string can be
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}
