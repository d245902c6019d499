// What the commands share: arguments, the order of their calls.
#include "fuzz/model/command_parts.h"

#include <cstdio>

namespace fuzz::model {

Numbers RowOf(const Matrix &matrix, std::size_t row)
{
    if (matrix.rows == 1)
        row = 0;
    Numbers values;
    for (std::size_t j = 0; j < matrix.columns; ++j)
        values.push_back(matrix.values[row + j * matrix.rows]);
    return values;
}

double ElementOf(const Matrix &column, std::size_t row) { return column.values[column.rows == 1 ? 0 : row]; }

int VaporPhaseOf(const Package &package)
{
    for (std::size_t i = 0; i < package.states.size(); ++i)
        if (Same(package.states[i], u"vapor"))
            return static_cast<int>(i);
    return -1;
}

Command::Command(Material &itsMaterial, const CommandSettings &itsSettings, const Request &itsRequest)
    : material(itsMaterial), settings(itsSettings), request(itsRequest)
{
    if (request.code == 22)
        startSinglePhase();
    else if (request.code == 23)
        startTwoPhase();
    else if (request.code == 24)
        startFlash();
    else
        startBatch();
}

bool Command::fail(WideString text)
{
    error = std::move(text);
    return false;
}

bool Command::cutNames()
{
    if (request.outputs > request.names.size())
        return fail(u"Too many output arguments");
    const std::size_t wanted = request.outputs == 0 ? 1 : request.outputs;
    if (wanted < request.names.size())
        request.names.resize(wanted);
    return true;
}

bool Command::readColumn(const Matrix &argument, std::size_t columns, LPCWSTR wrongColumns, LPCWSTR notDouble,
                         LPCWSTR noRows)
{
    if (argument.columns != columns)
        return fail(wrongColumns);
    if (!argument.isDouble)
        return fail(notDouble);
    return argument.rows != 0 || fail(noRows);
}

bool Command::combine(const Matrix &argument, LPCWSTR inconsistent)
{
    if (count == 1)
        count = argument.rows;
    return argument.rows == 1 || argument.rows == count || fail(inconsistent);
}

WideString Command::at(const Matrix &column, std::size_t row) const
{
    char text[64];
    std::snprintf(text, sizeof text, "%lg", ElementOf(column, row));
    return WideString(text, text + std::char_traits<char>::length(text));
}

const ExpectedCall *Command::nextCall() { return isOver() ? nullptr : &call; }

void Command::callEnded(HRESULT hr, const WideString &words)
{
    if (request.code < 24)
        endCondition(hr, words);
    else if (request.code == 24)
        endFlash(hr, words);
    else if (isPostFlash)
        endPostFlash(hr, words);
    else
        endRow(hr, words);
}

} // namespace fuzz::model
