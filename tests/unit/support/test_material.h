// A package record filled by hand and a material of it, for tests that need no package.
#pragma once

#include "cape/com/com_object.h"
#include "cape/variant_array.h"
#include "material/material_object.h"
#include "packages/open_package.h"
#include "platform/platform.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

// One list of strings as a package hands it over.
inline void FillStringList(VariantArray &list, const std::vector<WideString> &texts)
{
    list.Create(static_cast<std::int32_t>(texts.size()), VT_BSTR);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const BSTR text = SysAllocString(texts[i].c_str());
        list.PutString(static_cast<std::int32_t>(i), text);
        SysFreeString(text);
    }
}

// Compounds "C0", "C1", ... with the given molecular weights in g/mol, phases with the given
// labels. The one reference on the material is this object's: the record holds none.
class TestMaterial {
public:
    explicit TestMaterial(const std::vector<double> &molecularWeights,
                          const std::vector<WideString> &phaseLabels = {OLESTR("Vapor"), OLESTR("Liquid")})
    {
        record.molecularWeights = molecularWeights;
        for (std::size_t i = 0; i < molecularWeights.size(); ++i)
            record.compoundIds.push_back(WideString(OLESTR("C")) + static_cast<WCHAR>(OLESTR('0') + i));
        record.phaseLabels = phaseLabels;
        record.phaseStatesOfAggregation.assign(phaseLabels.size(), OLESTR("Unknown"));
        FillStringList(record.compoundIdList, record.compoundIds);
        FillStringList(record.phaseLabelList, record.phaseLabels);
        record.compoundsLoaded = true;
        record.phasesLoaded = true;
        object = new CComObject<CMaterialObject>;
        object->AddRef();
        object->InitMaterial(&record);
    }
    ~TestMaterial() { object->Release(); }
    TestMaterial(const TestMaterial &) = delete;
    TestMaterial &operator=(const TestMaterial &) = delete;

    OpenPackage &package() { return record; }
    CComObject<CMaterialObject> &material() { return *object; }
    CComObject<CMaterialObject> *operator->() { return object; }

    // Each of the arrays has one fraction for each compound; bases are 0 mole, 1 mass.
    void setOverallComposition(const std::vector<double> &fractions, std::int32_t basis)
    {
        std::copy(fractions.begin(), fractions.end(), object->overallComposition.get());
        object->overallCompositionBasis = basis;
    }
    void setPhaseComposition(std::size_t phase, const std::vector<double> &fractions, std::int32_t basis)
    {
        std::copy(fractions.begin(), fractions.end(), object->phaseComposition[phase].get());
        object->phaseCompositionBasis[phase] = basis;
    }
    // Makes the phase present.
    void setPhaseFraction(std::size_t phase, double fraction, std::int32_t basis)
    {
        object->phasePresent[phase] = 1;
        object->phaseFraction[phase] = fraction;
        object->phaseFractionBasis[phase] = basis;
    }

private:
    OpenPackage record;
    CComObject<CMaterialObject> *object;
};
