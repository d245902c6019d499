#include "fuzz/material/record.h"

#include "fuzz/input.h"
#include "material/ensure_material.h"

#include <utility>

namespace fuzz {

HRESULT PlainPackage::setMaterial(IDispatch *given)
{
    given->AddRef();
    material.attach(given);
    return S_OK;
}

Record::Record(Input &input) : package(input), record(std::make_unique<OpenPackage>())
{
    package.query(InterfaceId<IDispatch>, reinterpret_cast<void **>(&record->package));
    FUZZ_CHECK(EnsureMaterial(*record));
    FUZZ_CHECK(package.material);
}

Record::~Record()
{
    close();
    package.material.reset();
    FUZZ_CHECK(package.references() == 0);
}

void Record::close()
{
    record.reset();
    package.contents.isClosed = true;
}

} // namespace fuzz
