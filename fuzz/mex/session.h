// One input's play: a script calls commands, components answer them as the input says, and in the midst of an answer
// they act: on the material, on the simulation context, or by a command of their own.
#pragma once

#include "fuzz/mex/arguments.h"
#include "fuzz/mex/components.h"

#include <memory>
#include <vector>

namespace fuzz {

class Session {
public:
    Session(Input &bytes, MexLeave howErrorsLeave);
    ~Session(); // every component has been given back, or the process ends

    static Session *current; // whose components class factories make

    // One command with the arguments of the input's choice.
    void callCommand();

    // Command 3 for a package that is there.
    void openPackage();

    // A method of a component begins: what it does beside its work, and how it ends.
    HRESULT enter(const char *method, AnyPackage *package = nullptr);

    // Whatever components hold beyond their end.
    void giveBackKept() { kept.clear(); }

    template <class Made, class... Given> Made &make(Given &&...given)
    {
        components.push_back(std::make_unique<Made>(*this, std::forward<Given>(given)...));
        return static_cast<Made &>(*components.back());
    }

    Input &input;

private:
    void tell(const char *what, const void *who) const;
    void act(AnyPackage *package);
    void useContext(AnyPackage &package);
    void callMaterial(AnyPackage &package);
    void useKept(const AnyPackage &package);
    void call(int nlhs, Arguments &arguments, int code);
    void addArguments(Arguments &arguments, int code);
    void addCalculation(Arguments &arguments, int code);
    void spoil(Arguments &arguments);

    mxArray *handle();
    mxArray *names(bool ofTwoPhases);
    mxArray *column(std::size_t rows);
    mxArray *compositions(std::size_t rows);
    mxArray *label();
    mxArray *constraint();

    MexLeave leave;
    std::vector<std::unique_ptr<Component>> components;
    std::vector<ComPointer<IUnknown>> kept;
    std::vector<std::int32_t> handles;
    const model::Package *latest = nullptr; // of the packages that were made
    int actions;                            // that are left
    int depth = 0;                          // of commands within commands

    friend class AnyPackage;
};

} // namespace fuzz
