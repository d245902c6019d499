#include "commands/results.h"

mxArray *CreateResultCell(std::size_t count)
{
    const mwSize dimensions[] = {count, 1};
    return mxCreateCellArray_730(2, dimensions);
}

double *AddResultMatrix(mxArray *cell, std::size_t position, std::int32_t rows, std::int32_t columns)
{
    mxArray *matrix = mxCreateDoubleMatrix_730(static_cast<mwSize>(rows), static_cast<mwSize>(columns), mxREAL);
    mxSetCell_730(cell, position, matrix);
    return mxGetPr(matrix);
}

Verdict ShapeResult(std::int32_t dimensions, std::int32_t conditions, std::int32_t compounds, std::int32_t &rows,
                    std::int32_t &columns)
{
    rows = dimensions < 2 ? 1 : compounds;
    columns = dimensions < 1 ? 1 : compounds;
    if (conditions > 1) {
        rows = conditions;
        if (dimensions > 1)
            return Verdict::refuse("Property calculations cannot be performed at multiple conditions "
                                   "if any property has matrix dimensions");
    }
    return Verdict::done();
}

void SpreadValues(const double *values, std::uint32_t count, double *target, std::int32_t stride)
{
    for (std::uint32_t k = 0; k < count; ++k)
        target[static_cast<std::size_t>(k) * static_cast<std::size_t>(stride)] = values[k];
}
