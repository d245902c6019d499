// A package record as the system keeps it, of a package that gives its lists and takes its material.
#pragma once

#include "cape/com/com_pointer.h"
#include "fuzz/material/package_lists.h"
#include "packages/open_package.h"

#include <memory>

namespace fuzz {

class PlainPackage final : public ListingPackage {
public:
    using ListingPackage::ListingPackage;

    HRESULT setMaterial(IDispatch *given) override;

    ComPointer<IDispatch> material; // of SetMaterial
};

// Opened when it is made. It is closed by its end or before; the material lives as long as somebody holds it.
class Record {
public:
    explicit Record(Input &input);
    ~Record();

    void close();

    PlainPackage package;
    std::unique_ptr<OpenPackage> record; // null when closed
};

} // namespace fuzz
