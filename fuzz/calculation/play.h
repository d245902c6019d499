// The script and the package of the calculation target.
#pragma once

#include "fuzz/material/calls.h"
#include "fuzz/material/package_lists.h"
#include "fuzz/mex/arguments.h"
#include "fuzz/mex/library.h"
#include "fuzz/model/commands.h"

namespace fuzz {

// Calculates when it is called as the present command has to call it, and fails now and then.
class CalculationPackage final : public ListingPackage {
public:
    explicit CalculationPackage(Input &bytes);
    ~CalculationPackage() override; // it has been given back, or the process ends

    static HRESULT create(ComponentKind kind, REFIID iid, void **object); // the one that there is

    HRESULT calcSinglePhaseProp(const VARIANT &properties, BSTR label) override;
    HRESULT calcTwoPhaseProp(const VARIANT &properties, const VARIANT &labels) override;
    HRESULT calcEquilibrium(const VARIANT &specification1, const VARIANT &specification2, BSTR solutionType) override;
    HRESULT setMaterial(IDispatch *material) override;
    HRESULT getText(const char *method, BSTR *text) override;

    model::Command *command = nullptr; // the present one
    Client client;

protected:
    void lastReferenceGone() override { client.material.reset(); }

private:
    const model::ExpectedCall &called(model::ExpectedCall::Method method);
    void useMaterial();
    HRESULT ended();

    Input &input;
    MaybeText description; // the words of a failure
    MaybeText name;
};

class Play {
public:
    Play(Input &bytes, CalculationPackage &itsPackage); // opens it
    void step();                                        // a setting is changed, or something is calculated

private:
    void setBasis(bool perMass);
    void setWarnings(bool shown);
    void calculate(int code);
    bool call(int nlhs, Arguments &arguments);
    void expect(const model::Command &command, bool returned);
    void expectCells(const model::Command &command);
    void expectFlash(const model::Command &command);

    model::Request request(int code);
    model::Matrix matrix(std::size_t rows, std::size_t columns);
    WideString label();
    WideString constraint();
    void names(int code, std::vector<WideString> &tokens);

    Input &input;
    CalculationPackage &package;
    model::CommandSettings settings;
    std::int32_t handle = -1;
    std::vector<mxArray *> outputs; // of the last call
};

} // namespace fuzz
