#include "properties/vocabulary.h"

PropertyTable constantProperties;
PropertyTable tDependentProperties;
PropertyTable pDependentProperties;
PropertyTable singlePhaseProperties;
PropertyTable twoPhaseProperties;

namespace {

#include "properties/vocabulary_rows.inc"

// By kind, which is the order of clearing too.
constexpr PropertyTable *tables[] = {
    &constantProperties, &tDependentProperties, &pDependentProperties, &singlePhaseProperties, &twoPhaseProperties,
};

bool tablesBuilt = false;

} // namespace

void BuildPropertyTables()
{
    if (tablesBuilt)
        return;
    for (const PropertyInfo &row : rows) // what stands there already was built when memory ran out
        tables[row.kind]->try_emplace(WSTRMapKeyString(row.name), &row);
    tablesBuilt = true;
}

void ClearPropertyTables()
{
    tablesBuilt = false;
    for (PropertyTable *table : tables)
        table->clear();
}
