// The bridge to Octave, with an interpreter around it: the library's commands with arrays of every class that Octave
// has, in most of the ways in which it stores them. Numbers of another class have to give what the same doubles give.
#include "fuzz/octave/values.h"

#include <octave/interpreter.h>
#include <octave/ov-mex-fcn.h>
#include <octave/parse.h>

#include <dlfcn.h>

#include <csignal>

extern "C" void mexFunction(int, void **, int, const void **); // of toolbox/octave/octave_side.cpp

namespace {

octave::interpreter *interpreter = nullptr;
octave_value *library = nullptr; // to the end of the process, too: cleared it would have to be loaded anew

// The results, and whether it raised.
struct Answer {
    bool raised = false;
    octave_value_list results;
};

Answer callLibrary(const octave_value_list &arguments, int outputs)
{
    Answer answer;
    try {
        answer.results = octave::feval(*library, arguments, outputs);
    } catch (const octave::execution_exception &) {
        interpreter->recover_from_exception();
        answer.raised = true;
    }
    for (octave_idx_type i = 0; i < answer.results.length(); ++i) {
        const octave_value &value = answer.results(i);
        FUZZ_CHECK(value.is_undefined() || value.iscell() || value.is_string() || value.is_double_type() ||
                   value.is_int32_type());
    }
    return answer;
}

octave_value_list listOf(std::initializer_list<octave_value> values)
{
    octave_value_list list;
    for (const octave_value &value : values)
        list.append(value);
    return list;
}

octave_value handleOf(const char *package)
{
    const Answer answer =
        callLibrary(listOf({3.0, octave_value("Verdanth Reference Packages"), octave_value(package)}), 1);
    FUZZ_CHECK(!answer.raised && answer.results.length() == 1);
    return answer.results(0);
}

octave_value_list anyCall(FuzzedDataProvider &input)
{
    constexpr int lastCode = 26; // the next one shows a window
    const int code = input.ConsumeIntegralInRange(1, lastCode);
    const octave_value handle = handleOf("Natural gas");
    const octave_value composition = Row({0.8, 0.1, 0.05, 0.0, 0.0, 0.0, 0.0, 0.0, 0.05, 0.0, 0.0});
    octave_value_list arguments;
    switch (code) {
    case 2:
        arguments = listOf({2.0, octave_value("Verdanth Reference Packages")});
        break;
    case 3:
        arguments = listOf({3.0, octave_value("Verdanth Reference Packages"), octave_value("Air")});
        break;
    case 9:
        arguments = listOf({9.0, handle, octave_value("Vapor")});
        break;
    case 16:
        arguments = listOf({16.0, handle, octave_value("molecularWeight")});
        break;
    case 17:
        arguments = listOf({17.0, octave_value(1.0)});
        break;
    case 18:
        arguments = listOf({18.0, octave_value("mole")});
        break;
    case 19:
        arguments = listOf({19.0, octave_value("density")});
        break;
    case 20:
    case 21:
        arguments =
            listOf({double(code), 1.0, handle, octave_value(code == 20 ? "vaporPressure" : "boilingPointTemperature"),
                    code == 20 ? Row({200, 250}) : Row({1e5, 2e5})});
        break;
    case 22:
        arguments = listOf({22.0, 1.0, handle, octave_value("density"), octave_value("Vapor"), Row({300, 310}),
                            Row({1e5, 2e5}), composition});
        break;
    case 23:
        arguments = listOf({23.0, 1.0, handle, octave_value("kvalue"), octave_value("Vapor"), octave_value("Liquid"),
                            Row({200}), Row({1e6}), composition, composition});
        break;
    case 24:
        arguments = listOf({24.0, handle, octave_value("temperature"), octave_value("pressure"), 200.0, 1e6,
                            composition, octave_value("")});
        break;
    case 25:
        arguments = listOf({25.0, handle, octave_value("temperature"), octave_value("pressure"), Row({200, 210}),
                            Row({1e6, 1e6}), composition, 1.0, octave_value("vaporFraction"), octave_value("")});
        break;
    default:
        arguments = listOf({double(code)});
        if (code != 1 && code != 5 && code != 26)
            arguments.append(handle);
    }
    for (int changes = input.ConsumeIntegralInRange(0, 3); changes > 0 && arguments.length() > 0; --changes) {
        const auto at = input.ConsumeIntegralInRange<octave_idx_type>(0, arguments.length() - 1);
        arguments(at) = input.ConsumeBool() ? AnyValue(input, 0) : InAnotherForm(input, arguments(at));
    }
    if (input.ConsumeIntegralInRange(0, 7) == 0)
        arguments.append(AnyValue(input, 0));
    return arguments;
}

void leaveAsItWas()
{
    const Answer handles = callLibrary(listOf({5.0}), 1);
    FUZZ_CHECK(!handles.raised);
    const int32NDArray numbers = handles.results(0).int32_array_value();
    for (octave_idx_type i = 0; i < numbers.numel(); ++i)
        FUZZ_CHECK(!callLibrary(listOf({4.0, octave_value(numbers(i))}), 0).raised);
    FUZZ_CHECK(!callLibrary(listOf({18.0, octave_value("mole")}), 0).raised);
    FUZZ_CHECK(!callLibrary(listOf({17.0, octave_value(1.0)}), 0).raised);
}

// The same whole numbers as doubles and in another form.
void sameNumbersAlike(FuzzedDataProvider &input)
{
    const octave_value handle = handleOf("Air");
    const auto rows = input.ConsumeIntegralInRange<octave_idx_type>(1, 4);
    NDArray temperatures(dim_vector(rows, 1));
    NDArray pressures(dim_vector(rows, 1));
    NDArray amounts(dim_vector(rows, 8));
    for (octave_idx_type i = 0; i < rows; ++i) {
        temperatures(i) = input.ConsumeIntegralInRange(70, 120);
        pressures(i) = input.ConsumeIntegralInRange(1, 30000);
    }
    for (octave_idx_type i = 0; i < amounts.numel(); ++i)
        amounts(i) = input.ConsumeIntegralInRange(0, 100);
    const auto call = [&](const octave_value &t, const octave_value &p, const octave_value &z) {
        return callLibrary(listOf({22.0, 1.0, handle, octave_value("enthalpy"), octave_value("Vapor"), t, p, z}), 1);
    };
    const Answer expected = call(temperatures, pressures, amounts);
    const Answer found =
        call(InAnotherForm(input, temperatures), InAnotherForm(input, pressures), InAnotherForm(input, amounts));
    FUZZ_CHECK(found.raised == expected.raised);
    if (expected.raised)
        return;
    const NDArray a = expected.results(0).array_value();
    const NDArray b = found.results(0).array_value();
    FUZZ_CHECK(a.dims() == b.dims());
    for (octave_idx_type i = 0; i < a.numel(); ++i)
        FUZZ_CHECK(a(i) == b(i) || (a(i) != a(i) && b(i) != b(i)));
}

} // namespace

// What the interpreter keeps for itself, as the comments of a function that it has read.
extern "C" [[gnu::visibility("default")]] const char *__lsan_default_suppressions() { return "leak:liboctinterp\n"; }

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    // The fuzzer's counters are in the libraries, so none may go.
    FUZZ_CHECK(dlopen(REFERENCE_LIBRARY, RTLD_NOW | RTLD_NODELETE) != nullptr);
    // The interpreter would have the signals of a crash for itself.
    struct sigaction before[NSIG] = {};
    for (int i = 1; i < NSIG; ++i)
        sigaction(i, nullptr, &before[i]);
    interpreter = new octave::interpreter; // to the end of the process
    interpreter->initialize_history(false);
    interpreter->initialize_load_path(true);
    interpreter->read_init_files(false);
    interpreter->read_site_files(false);
    FUZZ_CHECK(interpreter->execute() == 0);
    for (int i = 1; i < NSIG; ++i)
        sigaction(i, &before[i], nullptr);
    octave::feval("warning", listOf({octave_value("off"), octave_value("all")}), 0);
    library = new octave_value(new octave_mex_function(reinterpret_cast<void *>(&mexFunction), false, false,
                                                       octave::dynamic_library(), "Verdanth"));
    MakeOddValues();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    for (int calls = input.ConsumeIntegralInRange(1, 4); calls > 0; --calls) {
        if (input.ConsumeIntegralInRange(0, 3) == 0) {
            sameNumbersAlike(input);
        } else {
            const octave_value_list arguments = anyCall(input);
            callLibrary(arguments, input.ConsumeIntegralInRange(0, 6));
        }
    }
    leaveAsItWas();
    return 0;
}
