#include "pinning/PinSizes.h"

#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Conflict.h"

#include <algorithm>
#include <stdexcept>

namespace quorrel {

namespace {

bool IsKnownAs(const QString& typed, const QString& name) {
    // A brand without a name would be every brand.
    if (name.isEmpty() && !typed.isEmpty())
        return false;
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

QString Subject(const ManufacturerRow& brand) {
    return QStringLiteral("The table of pin sizes of ") + RightTrimmed(brand.Name);
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

bool LearnLockBrand(Session& session, const QString& text) {
    const QString typed = RightTrimmed(text);
    Transaction transaction(session.Keys());
    const auto brands = Recordset<ManufacturerRow>(session.Keys()).Rows();
    if (std::any_of(brands.begin(), brands.end(), [&](const ManufacturerRow& brand) {
            return IsKnownAs(typed, RightTrimmed(brand.Name));
        }))
        return false;
    ManufacturerRow brand = NewBrand(typed);
    Recordset<ManufacturerRow>::Add(session.Keys(), brand);
    transaction.Commit();
    return true;
}

std::optional<ManufacturerRow> FindLockBrand(Session& session, const QString& brand) {
    const QString wanted = RightTrimmed(brand).toUpper();
    std::optional<ManufacturerRow> found;
    if (!wanted.isEmpty())
        Recordset<ManufacturerRow>(session.Keys()).Walk([&](const ManufacturerRow& row) {
            if (RightTrimmed(row.Name).toUpper() == wanted)
                found = row;
            return !found;
        });
    return found;
}

ManufacturerRow FindOrAddLockBrand(Session& session, const QString& brand) {
    Transaction transaction(session.Keys());
    if (auto known = FindLockBrand(session, brand))
        return *known;
    if (RightTrimmed(brand).isEmpty())
        throw std::invalid_argument("A lock brand needs a name.");
    ManufacturerRow row = NewBrand(RightTrimmed(brand));
    Recordset<ManufacturerRow>::Add(session.Keys(), row);
    transaction.Commit();
    return row;
}

PinSizes SizesOf(ManufacturerRow brand) {
    PinSizes sizes;
    for (std::size_t cut = 0; cut < 10; ++cut) {
        sizes.bottom[cut] = SizeField(brand, cut);
        sizes.top[cut] = SizeField(brand, 10 + cut);
    }
    return sizes;
}

std::optional<PinSizes> FindPinSizes(Session& session, const QString& brand) {
    const auto row = FindLockBrand(session, brand);
    return row ? std::optional(SizesOf(*row)) : std::nullopt;
}

void SavePinSizes(Session& session, const ManufacturerRow& shown, const PinSizes& sizes) {
    ManufacturerRow typed = shown;
    const auto take = [&](std::size_t index, const QString& size) {
        // A size that is the same but for blanks was not changed.
        if (size.trimmed() != SizeField(typed, index).trimmed())
            SizeField(typed, index) = size.left(kPinSizeLength);
    };
    for (std::size_t cut = 0; cut < 10; ++cut) {
        take(cut, sizes.bottom[cut]);
        take(10 + cut, sizes.top[cut]);
    }
    Transaction transaction(session.Keys());
    const auto stored = StoredRow<ManufacturerRow>(session.Keys(), shown.key, Subject(shown));
    ManufacturerRow merged = MergedChanges(shown, typed, stored, Subject(shown));
    Recordset<ManufacturerRow>::Update(session.Keys(), merged);
    transaction.Commit();
}

void DeleteLockBrand(Session& session, const ManufacturerRow& shown) {
    Transaction transaction(session.Keys());
    RequireAsShown(session.Keys(), shown, Subject(shown));
    Recordset<ManufacturerRow>(session.Keys(), Query<ManufacturerRow>().WhereKey(shown.key))
        .DeleteAll();
    transaction.Commit();
}

} // namespace quorrel
