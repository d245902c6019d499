#include "material/two_phase_key.h"

WideString TwoPhaseKey(LPCWSTR secondLabel, LPCWSTR property)
{
    WideString key;
    AssignTwoPhaseKey(key, secondLabel, property);
    return key;
}

void AssignTwoPhaseKey(WideString &key, LPCWSTR secondLabel, LPCWSTR property)
{
    key = secondLabel;
    key += OLESTR(':');
    key += property;
}
