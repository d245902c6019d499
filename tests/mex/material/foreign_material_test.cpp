// What a material makes of objects that say they are materials of this library.
#include "material/imaterial.h"
#include "tests/support/package_test.h"
#include "tests/support/without_names.h"

#include <cstdint>

using namespace support;

namespace {

// Has the private interface, which gives an address only on request.
class Impostor final : public WithoutNames<IMaterial> {
public:
    HRESULT answer = S_OK;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void **object) override
    {
        *object = static_cast<IMaterial *>(this);
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetMaterialObject(CMaterialObject **material) override
    {
        if (FAILED(answer))
            *material = reinterpret_cast<CMaterialObject *>(std::uintptr_t{0x10}); // of no worth
        return answer;
    }
};

class ForeignMaterial : public PackageTest {};

} // namespace

TEST_F(ForeignMaterial, ThatGivesNoAddressIsNoMaterialOfOurs)
{
    for (const HRESULT answer : {E_FAIL, S_OK}) {
        Impostor impostor;
        impostor.answer = answer;
        RefusedCall told;
        package.calcSinglePhase = [&](const SinglePhaseCall &asked) {
            IDispatch *source = &impostor;
            EXPECT_EQ(asked.material.get()->CopyFromMaterial(&source), CapeFailure(1));
            told = asked.material.lastRefusal();
            return StoreSinglePhase({{"volume", "mole", {0.025}}})(asked);
        };
        mustReturn(1, singlePhase());
        EXPECT_EQ(told.name, Wide("Not a Matlab material"));
    }
}
