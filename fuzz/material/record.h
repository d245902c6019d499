// A package record as the system keeps it, of a package that gives its lists and takes its material.
#pragma once

#include "cape/com/com_pointer.h"
#include "fuzz/model/material.h"
#include "fuzz/support/package_object.h"
#include "packages/open_package.h"

#include <memory>

namespace fuzz {

// Up to four compounds and phases, whose labels may be alike or empty, and weights that may be missing.
model::Package PackageLists(Input &input);

class PlainPackage final : public PackageObject {
public:
    explicit PlainPackage(const model::Package &contents) : package(contents) {}

    HRESULT getCompoundList(VARIANT *(&lists)[6]) override;
    HRESULT getPhaseList(VARIANT *(&lists)[3]) override;
    HRESULT setMaterial(IDispatch *given) override;

    ComPointer<IDispatch> material; // of SetMaterial

private:
    const model::Package &package;
};

// Opened when it is made. It is closed by its end or before; the material lives as long as somebody holds it.
class Record {
public:
    explicit Record(Input &input);
    ~Record();

    void close();

    model::Package contents;
    PlainPackage package{contents};
    std::unique_ptr<OpenPackage> record; // null when closed
};

} // namespace fuzz
