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

constexpr int lastCode = 26; // of the commands; the one behind it shows a window

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
    const Answer answer = callLibrary(listOf({3.0, "Verdanth Reference Packages", package}), 1);
    FUZZ_CHECK(!answer.raised && answer.results.length() == 1);
    return answer.results(0);
}

// A call that the library answers.
octave_value_list usualCall(int code)
{
    const octave_value number = double(code);
    const octave_value handle = handleOf("Natural gas");
    const octave_value composition = Row({0.8, 0.1, 0.05, 0.0, 0.0, 0.0, 0.0, 0.0, 0.05, 0.0, 0.0});
    switch (code) {
    case 1:
    case 5:
    case 26:
        return listOf({number});
    case 2:
        return listOf({number, "Verdanth Reference Packages"});
    case 3:
        return listOf({number, "Verdanth Reference Packages", "Air"});
    case 9:
        return listOf({number, handle, "Vapor"});
    case 16:
        return listOf({number, handle, "molecularWeight"});
    case 17:
        return listOf({number, 1.0});
    case 18:
        return listOf({number, "mole"});
    case 19:
        return listOf({number, "density"});
    case 20:
        return listOf({number, 1.0, handle, "vaporPressure", Column({150, 180})});
    case 21:
        return listOf({number, 1.0, handle, "boilingPointTemperature", Column({1e5, 2e5})});
    case 22:
        return listOf({number, 1.0, handle, "density", Column({300, 310}), Column({1e5, 2e5}), composition, "Vapor"});
    case 23:
        return listOf({number, 1.0, handle, "kvalue", 200.0, 1e6, composition, composition, "Vapor", "Liquid"});
    case 24:
        return listOf({number, handle, composition, "temperature", 200.0, "pressure", 1e6, ""});
    case 25:
        return listOf({number, handle, composition, "temperature", Column({200, 210}), "pressure", Column({1e6, 1e6}),
                       "", 1.0, "enthalpy"});
    default:
        return listOf({number, handle});
    }
}

int resultsOf(int code)
{
    switch (code) {
    case 4:
    case 17:
    case 18:
        return 0;
    case 24:
        return 5;
    default:
        return 1;
    }
}

octave_value_list anyCall(FuzzedDataProvider &input)
{
    octave_value_list arguments = usualCall(input.ConsumeIntegralInRange(1, lastCode));
    for (int changes = input.ConsumeIntegralInRange(0, 3); changes > 0; --changes) {
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
    FUZZ_CHECK(!callLibrary(listOf({18.0, "mole"}), 0).raised);
    FUZZ_CHECK(!callLibrary(listOf({17.0, 1.0}), 0).raised);
}

// A feed as elements and as the rule that Octave keeps for a range; and one of another class, which is not the
// library's to convert.
void sameNumbersAlike(FuzzedDataProvider &input)
{
    constexpr int compoundCount = 8;
    const octave_value handle = handleOf("Air");
    const auto rows = input.ConsumeIntegralInRange<octave_idx_type>(1, 4);
    NDArray temperatures(dim_vector(rows, 1));
    NDArray pressures(dim_vector(rows, 1));
    for (octave_idx_type i = 0; i < rows; ++i) {
        temperatures(i) = input.ConsumeIntegralInRange(70, 120);
        pressures(i) = input.ConsumeIntegralInRange(1, 30000);
    }
    const int first = input.ConsumeIntegralInRange(1, 100);
    const int increment = input.ConsumeIntegralInRange(1, 9);
    const auto feed = octave::range<double>::make_n_element_range(first, increment, compoundCount);
    const auto call = [&](const octave_value &amounts) {
        return callLibrary(listOf({22.0, 1.0, handle, "enthalpy", temperatures, pressures, amounts, "Vapor"}), 1);
    };
    const auto enthalpies = [](const Answer &answer) {
        FUZZ_CHECK(!answer.raised);
        return answer.results(0).cell_value()(0).array_value();
    };
    const NDArray expected = enthalpies(call(feed.array_value()));
    const NDArray found = enthalpies(call(feed));
    FUZZ_CHECK(expected.numel() == rows && found.dims() == expected.dims());
    for (octave_idx_type i = 0; i < rows; ++i)
        FUZZ_CHECK(found(i) == expected(i));
    const octave_value otherFeed = InAnotherForm(input, feed.array_value());
    FUZZ_CHECK(call(otherFeed).raised == !otherFeed.is_double_type());
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
    for (int code = 1; code <= lastCode; ++code)
        FUZZ_CHECK(!callLibrary(usualCall(code), resultsOf(code)).raised);
    leaveAsItWas();
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
