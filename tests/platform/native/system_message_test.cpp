#include "platform/native/system_messages.h"

#include <gtest/gtest.h>

#include <string>

TEST(SystemMessage, StandsForCommonResults)
{
    for (const HRESULT result : {E_NOTIMPL,
                                 E_NOINTERFACE,
                                 E_POINTER,
                                 E_ABORT,
                                 E_FAIL,
                                 E_UNEXPECTED,
                                 E_ACCESSDENIED,
                                 E_HANDLE,
                                 E_OUTOFMEMORY,
                                 E_INVALIDARG,
                                 CLASS_E_NOAGGREGATION,
                                 CLASS_E_CLASSNOTAVAILABLE,
                                 REGDB_E_CLASSNOTREG,
                                 CO_E_NOTINITIALIZED,
                                 CO_E_CLASSSTRING,
                                 CO_E_DLLNOTFOUND,
                                 CO_E_ERRORINDLL,
                                 RPC_E_CHANGED_MODE,
                                 DISP_E_BADINDEX,
                                 DISP_E_TYPEMISMATCH,
                                 DISP_E_BADVARTYPE,
                                 DISP_E_ARRAYISLOCKED,
                                 TYPE_E_LIBNOTREGISTERED})
        EXPECT_STRNE(native::systemMessage(static_cast<DWORD>(result)), "") << std::hex << result;
}

TEST(SystemMessage, OfAWin32ErrorIsThatOfItsResult)
{
    EXPECT_STREQ(native::systemMessage(5), "Access denied.");
    EXPECT_STREQ(native::systemMessage(0x80070005), "Access denied.");
    EXPECT_STREQ(native::systemMessage(0x800706BA), native::systemMessage(1722));
}

TEST(SystemMessage, IsEmptyForOtherCodes)
{
    for (const DWORD code : {0x80040501u, 0x8004051Au, 0x8004051Bu, 0x8007FFFFu, 0xC0000005u, 0u, 0x12345u})
        EXPECT_STREQ(native::systemMessage(code), "") << std::hex << code;
}
