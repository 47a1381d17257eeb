#include "systems/LockBrands.h"

#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/SystemTables.h"

#include <algorithm>

namespace quorrel {

namespace {

bool IsKnownAs(const QString& typed, const QString& name) {
    const auto length = std::min(typed.size(), name.size());
    return typed.left(length).toUpper() == name.left(length).toUpper();
}

} // namespace

QStringList ListLockBrands(Session& session) {
    QStringList names;
    Recordset<ManufacturerRow>(session.Keys()).Walk([&](const ManufacturerRow& row) {
        if (!IsNoValue(row.Name))
            names.append(row.Name);
        return true;
    });
    return names;
}

bool LearnLockBrand(Session& session, const QString& typed) {
    Transaction transaction(session.Keys());
    const auto brands = Recordset<ManufacturerRow>(session.Keys()).Rows();
    if (std::any_of(brands.begin(), brands.end(),
                    [&](const ManufacturerRow& brand) { return IsKnownAs(typed, brand.Name); }))
        return false;
    ManufacturerRow brand;
    for (const FieldRef& field : FieldsOf(brand))
        *std::get<QString*>(field) = QStringLiteral(" ");
    brand.Name = typed;
    Recordset<ManufacturerRow>::Add(session.Keys(), brand);
    transaction.Commit();
    return true;
}

} // namespace quorrel
