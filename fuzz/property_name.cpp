// The parser of property names, against the same rules in plain code: any text, and names of the vocabulary in any case
// with derivatives behind them.
#include "properties/property_name.h"
#include "fuzz/input.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <vector>

namespace {

struct Table {
    const PropertyTable *rows;
    PropertyKind kind;
    LPCWSTR word;
};

constexpr Table tables[] = {
    {&constantProperties, CompoundConstant, OLESTR("compound constant")},
    {&tDependentProperties, TemperatureDependent, OLESTR("temperature dependent property")},
    {&pDependentProperties, PressureDependent, OLESTR("pressure dependent property")},
    {&singlePhaseProperties, SinglePhase, OLESTR("single phase property")},
    {&twoPhaseProperties, TwoPhase, OLESTR("two-phase property")},
};

constexpr LPCWSTR suffixes[] = {OLESTR("dtemperature"), OLESTR("dpressure"), OLESTR("dmoles"), OLESTR("dmolfraction")};

WideString lower(WideString text)
{
    for (WCHAR &c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<WCHAR>(c + 32);
    return text;
}

bool isAscii(const WideString &text)
{
    for (const WCHAR c : text)
        if (c > 127)
            return false;
    return true;
}

WideString withCase(WideString text, std::uint64_t bits)
{
    for (WCHAR &c : text) {
        if ((bits & 1) != 0 && c >= 'a' && c <= 'z')
            c = static_cast<WCHAR>(c - 32);
        bits = bits >> 1 | bits << 63;
    }
    return text;
}

// The rows of a table by name: an order that stays.
const std::vector<const PropertyInfo *> &rowsInOrder(const Table &table)
{
    static std::array<std::vector<const PropertyInfo *>, std::size(tables)> lists;
    std::vector<const PropertyInfo *> &rows = lists[table.kind];
    if (rows.empty()) {
        for (const auto &entry : *table.rows)
            rows.push_back(entry.second);
        std::sort(rows.begin(), rows.end(), [](const PropertyInfo *a, const PropertyInfo *b) {
            return std::basic_string_view<WCHAR>(a->name) < b->name;
        });
    }
    return rows;
}

const PropertyInfo *rowNamed(const Table &table, const WideString &lowerName)
{
    for (const auto &entry : *table.rows)
        if (lower(entry.second->name) == lowerName)
            return entry.second;
    return nullptr;
}

// The message for a name, empty when it is to be accepted; then, which derivative it has and how many dimensions.
struct Expected {
    WideString message;
    const PropertyInfo *row = nullptr;
    int derivative = 0;
    int dimensions = 0;
};

Expected expect(const Table &table, const WideString &name)
{
    Expected expected;
    const std::size_t dot = name.find(OLESTR('.'));
    const WideString stem = lower(name.substr(0, dot));
    const bool isDerivative = dot != WideString::npos;
    if (isDerivative) {
        const WideString suffix = name.substr(dot + 1);
        for (std::size_t i = 0; i < std::size(suffixes); ++i)
            if (lower(suffix) == suffixes[i])
                expected.derivative = static_cast<int>(i) + 1;
        if (expected.derivative == 0) {
            expected.message = OLESTR("Invalid or unsuppored derivative \"") + suffix + OLESTR("\"");
            return expected;
        }
    }
    expected.row = rowNamed(table, stem);
    if (!expected.row) {
        expected.message = WideString(OLESTR("Invalid or unsupported ")) + table.word + OLESTR(": ") + stem;
        return expected;
    }
    const bool ofMixture = table.kind == SinglePhase || table.kind == TwoPhase;
    const bool byComposition = expected.derivative > PressureDerivative;
    expected.dimensions = expected.row->dimensions + (ofMixture && byComposition ? 1 : 0);
    if (!isDerivative || (ofMixture && expected.dimensions <= 2))
        return expected;
    if (ofMixture) {
        expected.message = OLESTR("composition derivatives of matrix properties not supported");
        return expected;
    }
    const bool isAllowed = (table.kind == TemperatureDependent && expected.derivative == TemperatureDerivative) ||
                           (table.kind == PressureDependent && expected.derivative == PressureDerivative);
    static constexpr LPCWSTR words[] = {OLESTR("Temperature"), OLESTR("Pressure"), OLESTR("Mole number"),
                                        OLESTR("Mole fraction")};
    static constexpr LPCWSTR kinds[] = {OLESTR("compound constants"), OLESTR("temperature dependent properties"),
                                        OLESTR("pressure dependent properties")};
    if (!isAllowed)
        expected.message =
            WideString(words[expected.derivative - 1]) + OLESTR(" derivative not supported for ") + kinds[table.kind];
    return expected;
}

WideString anyName(FuzzedDataProvider &input, const Table &table)
{
    WideString name;
    if (input.ConsumeBool()) {
        const Table &source = input.ConsumeBool() ? table : input.PickValueInArray(tables);
        const std::vector<const PropertyInfo *> &rows = rowsInOrder(source);
        const PropertyInfo *row = rows[input.ConsumeIntegralInRange<std::size_t>(0, rows.size() - 1)];
        name = withCase(row->name, input.ConsumeIntegral<std::uint64_t>());
    } else {
        name = AnyText(input, 200);
    }
    if (input.ConsumeBool())
        name += OLESTR('.');
    if (input.ConsumeBool()) {
        const auto suffix = input.PickValueInArray(suffixes);
        name += withCase(suffix, input.ConsumeIntegral<std::uint16_t>());
    } else {
        name += AnyText(input, 200);
    }
    return name;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    BuildPropertyTables();
    FuzzedDataProvider input(data, size);
    const Table &table = input.PickValueInArray(tables);
    ParsedProperty parsed{};
    WideString message;
    if (input.remaining_bytes() == 0) {
        FUZZ_CHECK(!ParsePropertyName(parsed, *table.rows, nullptr, message));
        FUZZ_CHECK(message == OLESTR("Property name is empty"));
        return 0;
    }
    const WideString name = anyName(input, table);
    const bool isAccepted = ParsePropertyName(parsed, *table.rows, name.c_str(), message);
    FUZZ_CHECK(isAccepted == message.empty());

    // How accented letters are compared is the operating system's affair.
    if (!isAscii(name.substr(std::min(name.find(OLESTR('.')), name.size()))))
        return 0;
    const Expected expected = expect(table, name);
    FUZZ_CHECK(message == expected.message);
    if (!isAccepted)
        return 0;
    FUZZ_CHECK(parsed.info == expected.row);
    FUZZ_CHECK(parsed.kind == table.kind);
    FUZZ_CHECK(parsed.derivative == expected.derivative);
    FUZZ_CHECK(parsed.dimensions == expected.dimensions);
    return 0;
}
