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
    tablesBuilt = true;
    for (const PropertyInfo &row : rows)
        tables[row.kind]->try_emplace(WSTRMapKeyString(row.name), &row);
}

void ClearPropertyTables()
{
    if (!tablesBuilt)
        return;
    tablesBuilt = false;
    for (PropertyTable *table : tables)
        table->clear();
}
