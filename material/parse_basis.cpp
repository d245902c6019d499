#include "material/parse_basis.h"

#include "cape/same_name.h"

bool ParseBasis(LPCWSTR basisText, BasisCode &code, WideString &errorText)
{
    if (!basisText || !*basisText) {
        code = NoBasis;
        return true;
    }
    if (SameName(basisText, OLESTR("mole"))) {
        code = MoleBasis;
        return true;
    }
    if (SameName(basisText, OLESTR("mass"))) {
        code = MassBasis;
        return true;
    }
    errorText = OLESTR("Invalid or unsupported basis: ");
    errorText += basisText;
    return false;
}
