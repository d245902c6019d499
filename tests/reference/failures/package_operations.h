// All that a host does with a package and its manager, one operation each.
#pragma once

#include "tests/reference/com/package_fixture.h"

#include <ostream>

// What an operation gave: its result, and in words everything else that the host can see of it.
struct OperationAnswer {
    HRESULT result = S_OK;
    std::string given;

    bool operator==(const OperationAnswer &) const = default;
    friend void PrintTo(const OperationAnswer &answer, std::ostream *stream)
    {
        *stream << std::hex << static_cast<std::uint32_t>(answer.result) << " " << answer.given;
    }
};

// A package, its material and its manager. The material is not set yet.
struct PackageHost : PackageInterfaces {
    explicit PackageHost(const Library &loaded);

    const Library &library;
    TestMaterial material{{"propane", "methane", "nitrogen"}};
    ComPointer<ICapeThermoPropertyPackageManager> manager;
    ComPointer<ICapeThermoUniversalConstant> constants;
    ComPointer<ICapeIdentification> identification;
    ComPointer<ECapeUser> errors;
};

enum OperationTrait : unsigned {
    setsMaterial = 1, // itself
    answersNo = 2,    // to arguments that it can't read
    refuses = 4,      // what it is asked
};

struct PackageOperation {
    const char *name;
    OperationAnswer (*run)(PackageHost &host);
    unsigned traits = 0;

    bool is(OperationTrait trait) const { return (traits & trait) != 0; }

    friend void PrintTo(const PackageOperation &operation, std::ostream *stream) { *stream << operation.name; }
};

const std::vector<PackageOperation> &PackageOperations();
