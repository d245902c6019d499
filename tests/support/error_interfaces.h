// What every object's error interfaces must do.
#pragma once

#include "cape/com/cape_open.h"

#include <gtest/gtest.h>

// They do not write to a null pointer.
inline void ExpectNullPointersRefused(ECapeRoot &root, ECapeUser &user)
{
    EXPECT_EQ(root.get_name(nullptr), E_POINTER);
    EXPECT_EQ(user.get_code(nullptr), E_POINTER);
    EXPECT_EQ(user.get_description(nullptr), E_POINTER);
    EXPECT_EQ(user.get_scope(nullptr), E_POINTER);
    EXPECT_EQ(user.get_interfaceName(nullptr), E_POINTER);
    EXPECT_EQ(user.get_operation(nullptr), E_POINTER);
    EXPECT_EQ(user.get_moreInfo(nullptr), E_POINTER);
}
