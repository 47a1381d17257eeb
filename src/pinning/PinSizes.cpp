#include "pinning/PinSizes.h"

#include "platform/Recordset.h"
#include "platform/Text.h"

#include <algorithm>

namespace quorrel {

namespace {

bool IsKnownAs(const QString& typed, const QString& name) {
    const auto length = std::min(typed.size(), name.size());
    return typed.left(length).toUpper() == name.left(length).toUpper();
}

/// The place of a size in the row: `Bottom0` to `Bottom9`, then `Top0` to `Top9`.
QString& SizeField(ManufacturerRow& row, std::size_t index) {
    return *std::get<QString*>(FieldsOf(row)[1 + index]);
}

ManufacturerRow NewBrand(const QString& name) {
    ManufacturerRow brand;
    brand.Name = name;
    for (std::size_t index = 0; index < 20; ++index)
        SizeField(brand, index) = QStringLiteral(" ");
    return brand;
}

std::optional<ManufacturerRow> FindBrand(Session& session, const QString& name) {
    std::optional<ManufacturerRow> found;
    Recordset<ManufacturerRow>(session.Keys()).Walk([&](const ManufacturerRow& row) {
        if (row.Name.toUpper() == name.toUpper())
            found = row;
        return !found;
    });
    return found;
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
    ManufacturerRow brand = NewBrand(typed);
    Recordset<ManufacturerRow>::Add(session.Keys(), brand);
    transaction.Commit();
    return true;
}

std::optional<PinSizes> FindPinSizes(Session& session, const QString& brand) {
    auto row = FindBrand(session, brand);
    if (!row)
        return std::nullopt;
    PinSizes sizes;
    for (std::size_t cut = 0; cut < 10; ++cut) {
        sizes.bottom[cut] = SizeField(*row, cut);
        sizes.top[cut] = SizeField(*row, 10 + cut);
    }
    return sizes;
}

PinSizes FindOrAddPinSizes(Session& session, const QString& brand) {
    Transaction transaction(session.Keys());
    if (auto sizes = FindPinSizes(session, brand))
        return *sizes;
    ManufacturerRow row = NewBrand(brand);
    Recordset<ManufacturerRow>::Add(session.Keys(), row);
    transaction.Commit();
    return *FindPinSizes(session, brand);
}

bool SavePinSizes(Session& session, const QString& brand, const PinSizes& sizes) {
    Transaction transaction(session.Keys());
    auto row = FindBrand(session, brand);
    if (!row)
        return false;
    for (std::size_t cut = 0; cut < 10; ++cut) {
        SizeField(*row, cut) = sizes.bottom[cut].left(kPinSizeLength);
        SizeField(*row, 10 + cut) = sizes.top[cut].left(kPinSizeLength);
    }
    Recordset<ManufacturerRow>::Update(session.Keys(), *row);
    transaction.Commit();
    return true;
}

bool DeleteLockBrand(Session& session, const QString& brand) {
    Transaction transaction(session.Keys());
    const auto row = FindBrand(session, brand);
    if (!row)
        return false;
    Recordset<ManufacturerRow>(session.Keys(), Query<ManufacturerRow>().WhereKey(row->key))
        .DeleteAll();
    transaction.Commit();
    return true;
}

} // namespace quorrel
