#include "demo/session.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

mxArray *Number(double value)
{
    mxArray *array = mxCreateDoubleMatrix_730(1, 1, mxREAL);
    *mxGetPr(array) = value;
    return array;
}

namespace {

mxArray *matrix(std::size_t rows, std::size_t columns, const std::vector<double> &values)
{
    mxArray *array = mxCreateDoubleMatrix_730(rows, columns, mxREAL);
    std::copy(values.begin(), values.end(), mxGetPr(array));
    return array;
}

} // namespace

mxArray *Column(const std::vector<double> &values) { return matrix(values.size(), 1, values); }

mxArray *Row(const std::vector<double> &values) { return matrix(1, values.size(), values); }

mxArray *Text(std::string_view ascii)
{
    const mwSize dimensions[] = {1, ascii.size()};
    mxArray *array = mxCreateCharArray_730(2, dimensions);
    std::copy(ascii.begin(), ascii.end(), mxGetChars(array));
    return array;
}

mxArray *Texts(std::initializer_list<std::string_view> ascii)
{
    const mwSize dimensions[] = {ascii.size(), 1};
    mxArray *cell = mxCreateCellArray_730(2, dimensions);
    mwIndex index = 0;
    for (const std::string_view text : ascii)
        mxSetCell_730(cell, index++, Text(text));
    return cell;
}

std::string TextOf(const mxArray *row)
{
    const int length = static_cast<int>(mxGetNumberOfElements(row));
    if (length == 0)
        return {};
    const int size = WideCharToMultiByte(CP_UTF8, 0, mxGetChars(row), length, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, mxGetChars(row), length, text.data(), size, nullptr, nullptr);
    return text;
}

std::vector<std::string> TextsOf(const mxArray *cell)
{
    std::vector<std::string> texts;
    for (mwIndex i = 0; i < mxGetNumberOfElements(cell); ++i)
        texts.push_back(TextOf(mxGetCell_730(cell, i)));
    return texts;
}

Session::Session()
{
    library = LoadLibraryW(OLESTR("Verdanth.mexw64"));
    if (library)
        function = reinterpret_cast<MexFunction>(reinterpret_cast<void (*)()>(GetProcAddress(library, "mexFunction")));
    if (!function) {
        std::fputs("The library Verdanth could not be loaded; it has to lie beside this program.\n", stderr);
        std::exit(EXIT_FAILURE);
    }
}

Session::~Session()
{
    for (mxArray *result : results)
        mxDestroyArray(result);
    mexStandInRunExit();
    FreeLibrary(library);
}

Arrays Session::call(int code, std::size_t resultCount, const Arrays &arguments)
{
    std::vector<const mxArray *> all = {Number(code)};
    all.insert(all.end(), arguments.begin(), arguments.end());
    Arrays outputs(std::max<std::size_t>(resultCount, 1), nullptr);
    const bool returned = mexStandInCall(function, static_cast<int>(resultCount), outputs.data(),
                                         static_cast<int>(all.size()), all.data(), mexLEAVE_UNWIND);
    for (const mxArray *argument : all)
        mxDestroyArray(const_cast<mxArray *>(argument));
    if (!returned) {
        std::fprintf(stderr, "Command %d failed: %s\n", code, mexStandInError());
        std::exit(EXIT_FAILURE);
    }
    results.insert(results.end(), outputs.begin(), outputs.end());
    return outputs;
}

mxArray *Session::copyOfHandle(const mxArray *handle)
{
    const mwSize size = 1;
    mxArray *copy = mxCreateNumericArray_730(1, &size, mxINT32_CLASS, mxREAL);
    *static_cast<std::int32_t *>(mxGetData(copy)) = *static_cast<const std::int32_t *>(mxGetData(handle));
    return copy;
}
