// Commands 22 to 25 worked out a second time. The model is told what the package is asked and how it ends, in between
// the package writes to the model's material, and from that follows what the command has to give: numbers or words.
#pragma once

#include "fuzz/model/material.h"

#include <functional>
#include <optional>

namespace fuzz::model {

struct Matrix {
    std::size_t rows = 0;
    std::size_t columns = 0;
    Numbers values;       // column by column
    bool isDouble = true; // as an argument may not be
};

// Arguments; each command has some of them.
struct Request {
    int code = 22;
    std::uint32_t outputs = 1;
    std::vector<WideString> names;
    Matrix temperatures, pressures, compositions, compositions2;
    WideString label, label2;
    WideString property1, property2;
    Matrix values1, values2;
    WideString solutionType;
};

struct CommandSettings {
    bool perMass = false;
    bool showsWarnings = true;
};

// A call of the package as it must come.
struct ExpectedCall {
    enum class Method { singlePhase, twoPhase, equilibrium } method;
    std::vector<WideString> names;
    std::vector<WideString> labels;
    std::vector<MaybeText> specification1, specification2;
    WideString solutionType;
};

class Command {
public:
    Command(Material &itsMaterial, const CommandSettings &itsSettings, const Request &itsRequest);

    // The package is called: what it must have been asked. Null when no call is due.
    const ExpectedCall *nextCall();

    // The package's call ends. `words` are what it says of its failure.
    void callEnded(HRESULT hr, const WideString &words);

    // Behind the last call.
    bool isOver() const { return isDone || !error.empty(); }

    WideString error; // of the command; empty when it returns
    std::vector<WideString> warnings;
    std::vector<std::vector<Matrix>> cells; // of commands 22, 23 and 25: matrices of each name, two of a pair of parts
    std::vector<WideString> labels;         // of command 24
    Matrix fractions, compositions;
    double temperature = 0, pressure = 0;

private:
    bool fail(WideString text); // false
    bool cutNames();
    bool readColumn(const Matrix &argument, std::size_t columns, LPCWSTR wrongColumns, LPCWSTR notDouble,
                    LPCWSTR noRows);
    bool combine(const Matrix &argument, LPCWSTR inconsistent); // as many rows as the others, or one
    bool readMixture(bool twoPhases);
    bool addProperty(Kind kind, const WideString &name);

    void startSinglePhase();
    void startTwoPhase();
    void startFlash();
    void startBatch();
    void prepareCondition();
    void prepareRow();
    bool takeConstraint(const WideString &name, std::vector<MaybeText> &specification, std::optional<double> value);
    void writeConstraint(const WideString &name, double value);

    void endCondition(HRESULT hr, const WideString &words);
    bool readSinglePhase();
    bool readTwoPhase();
    void endFlash(HRESULT hr, const WideString &words);
    void endRow(HRESULT hr, const WideString &words);
    void endPostFlash(HRESULT hr, const WideString &words);
    void goOnWithPhases(std::size_t from);
    bool storeRow();
    bool vaporFraction(double &value);
    bool average(const WideString &name, const Property &property, double &value);
    void nextRow();
    void warn(const WideString &text);
    bool repairFractions(bool storedPerMass);
    WideString at(const Matrix &column, std::size_t row) const;

    Material &material;
    const CommandSettings settings;
    Request request;
    std::vector<Property> properties;
    std::vector<WideString> calculated; // names as the package gets them
    std::size_t count = 0;              // of conditions or rows
    std::size_t current = 0;
    std::size_t phase = 0, phase2 = 0;
    int vapor = -1;
    bool vaporPerMass = false; // the basis of a given vapor fraction
    bool isDone = false;
    bool isPostFlash = false;
    ExpectedCall call{};
};

} // namespace fuzz::model
