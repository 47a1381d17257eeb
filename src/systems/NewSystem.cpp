#include "systems/NewSystem.h"

#include "engine/Patterns.h"
#include "engine/Preview.h"
#include "platform/Recordset.h"
#include "store/Scramble.h"
#include "systems/KeySystems.h"
#include "systems/SystemNumbers.h"

#include <algorithm>

namespace quorrel {

namespace {

QString NameTaken(const QString& name) {
    return QStringLiteral("Name of Key System: there is a key system \"%1\" already. Choose "
                          "another name.")
        .arg(name);
}

bool IsTaken(Session& session, const QString& name) {
    const auto systems = ListKeySystems(session);
    return std::any_of(systems.begin(), systems.end(), [&](const KeySystemRow& system) {
        return system.SystemName.trimmed().compare(name.trimmed(), Qt::CaseInsensitive) == 0;
    });
}

bool IsCutsText(const QString& text, int pins) {
    return IsDigits(text.toStdString(), pins);
}

QString DigitsWanted(const char* field, int pins, const QString& text) {
    return QStringLiteral("%1: %2 digits are needed, one for each pin, and \"%3\" is not that.")
        .arg(QLatin1String(field))
        .arg(pins)
        .arg(text);
}

std::optional<Refusal> CheckNumbers(const SystemDefinition& definition) {
    const struct {
        Refusal::Field field;
        const char* name;
        int number;
        NumberLimits limits;
    } numbers[] = {
        {Refusal::Field::Pins, "Number of Pins", definition.pins, kPinCountLimits},
        {Refusal::Field::MinimumPin, "Pin Sizes, Min.", definition.minPin, kMinPinLimits},
        {Refusal::Field::MaximumPin, "Pin Sizes, Max.", definition.maxPin, kMaxPinLimits},
        {Refusal::Field::Increment, "Increment", definition.increment, kIncrementLimits},
        {Refusal::Field::SafetyFactor, "Safety Factor", definition.safetyFactor,
         kSafetyFactorLimits}};
    for (const auto& [field, name, number, limits] : numbers)
        if (!limits.Hold(number))
            return Refusal{field, QStringLiteral("%1: the number can be %2 to %3, and it is %4.")
                                      .arg(QLatin1String(name))
                                      .arg(limits.lowest)
                                      .arg(limits.highest)
                                      .arg(number)};
    return std::nullopt;
}

std::optional<Refusal> CheckSpecial(const NewSystem& system) {
    if (system.type == SystemType::Standard)
        return std::nullopt;
    const bool angled = system.type == SystemType::AngledCut;
    if (!IsCutsText(system.special, system.definition.pins))
        return Refusal{angled ? Refusal::Field::Angle : Refusal::Field::Control,
                       DigitsWanted(angled ? "Angle Values" : "Control Key", system.definition.pins,
                                    system.special)};
    if (!angled && IsControlKeysCuts(system.definition.master, system.special.toStdString()))
        return Refusal{Refusal::Field::Control,
                       QStringLiteral("Control Key: these are the cuts of the master key. The "
                                      "master would draw every core; choose other cuts for the "
                                      "control key.")};
    return std::nullopt;
}

std::optional<Refusal> CheckPages(const SystemDefinition& definition) {
    try {
        if (CountUsableKeys(definition).Total() > 0)
            return std::nullopt;
    } catch (const PageLimitError& error) {
        return Refusal{Refusal::Field::Master,
                       QStringLiteral("Master Key: ") + QString::fromUtf8(error.what())};
    }
    return Refusal{Refusal::Field::MinimumPin,
                   QStringLiteral("Pin Sizes: these values give no usable change key. Widen the "
                                  "range of pin sizes or take a smaller increment.")};
}

KeySystemRow AddSystemRow(Session& session, const NewSystem& system, int systemID) {
    KeySystemRow row;
    row.SystemID = systemID;
    row.SystemName = system.name.trimmed();
    row.Address = system.address;
    row.LockBrand = system.lockBrand;
    row.SafetyFactor = system.definition.safetyFactor;
    row.NumberOfPins = system.definition.pins;
    row.PinIncrement = system.definition.increment;
    row.Notes = system.notes;
    row.MasterKey = Scrambled(QString::fromStdString(system.definition.master));
    Recordset<KeySystemRow>::Add(session.Keys(), row);
    return row;
}

void AddPatterns(Session& session, const NewSystem& system, int systemID) {
    PatternsRow row;
    row.SystemNumber = systemID;
    row.Label = QString(19, u' ');
    row.Description = QString(16, u' ');
    row.Department = QString(7, u' ');
    row.KeyWay = QString(8, u' ');
    Appender<PatternsRow> patterns(session.Keys(), row);
    GeneratePatterns(system.definition, system.type, system.special.toStdString(),
                     [&](const Pattern& pattern) {
                         row.Cuts = Scrambled(QString::fromStdString(pattern.text));
                         row.PageNumber = pattern.page;
                         row.Position = pattern.position;
                         row.Serial = static_cast<double>(pattern.serial);
                         row.Master = pattern.master;
                         patterns.Add();
                     });
}

} // namespace

std::optional<Refusal> CheckNewSystem(Session& session, const NewSystem& system) {
    const SystemDefinition& definition = system.definition;
    if (system.name.trimmed().isEmpty())
        return Refusal{Refusal::Field::Name,
                       QStringLiteral("Name of Key System: a name is required.")};
    if (IsTaken(session, system.name))
        return Refusal{Refusal::Field::Name, NameTaken(system.name.trimmed())};
    if (auto refusal = CheckNumbers(definition))
        return refusal;
    const QString master = QString::fromStdString(definition.master);
    if (!IsCutsText(master, definition.pins))
        return Refusal{Refusal::Field::Master, DigitsWanted("Master Key", definition.pins, master)};
    if (auto refusal = CheckSpecial(system))
        return refusal;
    return CheckPages(definition);
}

KeySystemRow CreateKeySystem(Session& session, const NewSystem& system) {
    const int highestOfMaps = HighestNumberOfMaps(session);
    Transaction transaction(session.Keys());
    if (IsTaken(session, system.name))
        throw NameTakenError(NameTaken(system.name.trimmed()).toStdString());
    KeySystemRow row = AddSystemRow(session, system, TakeSystemNumber(session, highestOfMaps));
    AddPatterns(session, system, row.SystemID);
    transaction.Commit();
    return row;
}

} // namespace quorrel
