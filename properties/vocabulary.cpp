#include "properties/vocabulary.h"

#include "properties/vocabulary_rows.h"

PropertyTable constantProperties;
PropertyTable tDependentProperties;
PropertyTable pDependentProperties;
PropertyTable singlePhaseProperties;
PropertyTable twoPhaseProperties;

namespace {

struct TableOfKind {
    PropertyKind kind;
    PropertyTable *table;
};

constexpr TableOfKind tables[] = {
    {CompoundConstant, &constantProperties},
    {TemperatureDependent, &tDependentProperties},
    {PressureDependent, &pDependentProperties},
    {SinglePhase, &singlePhaseProperties},
    {TwoPhase, &twoPhaseProperties},
};

bool tablesBuilt = false;

} // namespace

void BuildPropertyTables()
{
    if (tablesBuilt)
        return;
    tablesBuilt = true;
    for (const auto &[kind, table] : tables)
        for (const PropertyInfo &row : PropertyRows(kind))
            table->try_emplace(WSTRMapKeyString(row.name), &row);
}

void ClearPropertyTables()
{
    if (!tablesBuilt)
        return;
    tablesBuilt = false;
    for (const auto &[kind, table] : tables)
        table->clear();
}
