// How the client describes arrays of the classes that the library does not read.
#include "client/matlab/arrays.h"
#include "platform/matlab/standin.h"

#include <gtest/gtest.h>

#include <memory>

using wire::Class;

namespace {

// A 1-by-1 array of a class, and its description.
struct Described {
    explicit Described(mxClassID type) : array(mxCreateNumericArray_730(2, size, type, mxREAL), mxDestroyArray) {}
    const wire::Value &value()
    {
        const mxArray *const arrays[] = {array.get()};
        return values.take(1, arrays)[0];
    }

    static constexpr mwSize size[] = {1, 1};
    std::unique_ptr<mxArray, decltype(&mxDestroyArray)> array;
    ArgumentValues values;
};

} // namespace

TEST(ClientArrays, OfNoNumbersAreNotAskedForOne)
{
    for (const mxClassID type : {mxUNKNOWN_CLASS, mxSTRUCT_CLASS, mxFUNCTION_CLASS})
        EXPECT_EQ(Described(type).value().type, Class::Opaque) << type;
}

TEST(ClientArrays, OfNumbersCrossWithTheFirst)
{
    for (const mxClassID type : {mxLOGICAL_CLASS, mxSINGLE_CLASS, mxINT8_CLASS, mxUINT8_CLASS, mxINT16_CLASS,
                                 mxUINT16_CLASS, mxUINT32_CLASS, mxINT64_CLASS, mxUINT64_CLASS}) {
        Described described(type);
        *static_cast<std::uint8_t *>(mxGetData(described.array.get())) = 1; // its low byte
        ASSERT_EQ(described.value().type, Class::Single) << type;
        EXPECT_NE(*static_cast<const float *>(described.value().real), 0) << type;
    }
}
