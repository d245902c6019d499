// The part of a scripted CAPE-OPEN component that all kinds have in common. A test tells a
// script what the component is to answer, and reads from it what has happened; the component
// reads the script at every call.
#pragma once

#include "cape/com/com_pointer.h"
#include "platform/nth_call.h"
#include "tests/support/automation_values.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace support {

// What all components of a test were asked, in order: "manager.Initialize", "package.Terminate".
using CallLog = std::vector<std::string>;

class ScriptedObject;

// The n-th call of a method, or of QueryInterface, on whichever component of a world: it gives this result and does
// nothing else.
struct FailingCall {
    seam::NthCall *which = nullptr; // not owned; null: none fails
    HRESULT result = E_FAIL;
    std::string method; // what was struck, behind the label: "package.Initialize"
    IID wanted = {};    // of QueryInterface
};

// The words behind a failed call. An interface that is not there is refused by QueryInterface; a
// text that is not there leaves the caller's BSTR null.
struct ErrorWords {
    bool user = false; // ECapeUser
    std::optional<WideString> description;
    bool root = false; // ECapeRoot
    std::optional<WideString> name;
    const IID *onlyFrom = nullptr; // the one interface that leads to them; null: every one
};

ErrorWords Description(AnyText text); // of ECapeUser
ErrorWords ErrorName(AnyText text);   // of ECapeRoot

class ComponentScript {
public:
    ComponentScript() = default;
    ComponentScript(const ComponentScript &) = delete;
    ComponentScript &operator=(const ComponentScript &) = delete;
    virtual ~ComponentScript();

    // --- what to answer ---

    // QueryInterface gives this for the interface. Every component has IUnknown, IDispatch,
    // ICapeIdentification and ICapeUtilities unless they are refused; IPersistStreamInit it has
    // only when `persistent` is set.
    void refuse(REFIID iid, HRESULT result = E_NOINTERFACE);
    bool persistent = false;

    // A method's result: at its n-th call, the first being 1, or at every call for 0. A failing
    // result comes instead of what the method does. "created" stands for the creation.
    void answer(const std::string &method, HRESULT result, int call = 0);

    ErrorWords words;
    WideString componentName = Wide("Scripted component");
    bool keepsContext = false; // holds the simulation context until keptContext is reset

    // Runs at the beginning of every method, with its name.
    std::function<void(const std::string &method)> onCall;

    // Runs when the last reference on one of an object's interfaces has been given back.
    std::function<void(REFIID iid)> onInterfaceReleased;

    // --- what happened ---

    std::string label; // in front of the methods in the log
    CallLog *log = nullptr;
    FailingCall *failingMethod = nullptr; // of the world, as the log is
    FailingCall *failingQuery = nullptr;
    int calls(const std::string &method) const;
    int objectsMade() const { return static_cast<int>(objects.size()); }
    int references() const;           // on all objects, by all interfaces
    int references(REFIID iid) const; // by this one
    std::vector<std::string> misuses; // calls to objects that were released, references given back twice

    ComPointer<IDispatch> context;     // of put_simulationContext, while an object holds it
    ComPointer<IDispatch> keptContext; // the further reference that keepsContext asks for

    // A new object for a class factory or another component: S_OK with one reference by `iid`.
    HRESULT create(REFIID iid, void **object);

protected:
    virtual std::unique_ptr<ScriptedObject> makeObject() = 0;
    virtual void objectReleased() {} // the last reference has gone

private:
    friend class ScriptedObject;

    HRESULT resultOf(const std::string &method, int call) const;
    std::optional<HRESULT> refusal(REFIID iid) const;

    std::vector<std::pair<IID, HRESULT>> refusals;
    std::map<std::string, std::map<int, HRESULT>> answers;
    std::map<std::string, int> callCounts;
    std::vector<std::unique_ptr<ScriptedObject>> objects; // released ones too, so that misuse is seen
};

} // namespace support
