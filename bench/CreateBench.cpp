#include "BareFile.h"
#include "Benches.h"
#include "LargestSystem.h"
#include "store/DatabaseFiles.h"

#include <string>

namespace quorrel::bench {

namespace {

void CreateLargest(benchmark::State& state) {
    while (state.KeepRunning()) {
        const FreshFolder folder;
        QuietSession program(folder.Path());
        Time(state, [&] { CreateKeySystem(program.session, LargestSystem()); });
    }
}

constexpr const char* kSystemColumns =
    "\"SystemID\", \"SystemName\", \"Address\", \"LockBrand\", \"SafetyFactor\", "
    "\"NumberOfPins\", \"PinIncrement\", \"Notes\", \"MasterKey\", \"MapFile\", \"MapFileID\"";
constexpr const char* kPatternColumns =
    "\"SystemNumber\", \"PageNumber\", \"Position\", \"Serial\", \"Cuts\", \"Master\", "
    "\"Label\", \"Description\", \"Department\", \"KeyWay\", \"AlphaCode\"";
constexpr const char* kElevenValues = ") VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";

std::vector<BareRow> StoredRows(const char* table, const std::string& columns) {
    BareFile file(LargestFolder().PathOf(kKeySystemFile));
    const std::string select = "SELECT " + columns + " FROM \"" + table + "\" ORDER BY \"RowKey\"";
    return file.Rows(file.Prepare(select.c_str()).get());
}

void AddRows(BareFile& file, const char* table, const std::string& columns,
             const std::vector<BareRow>& rows) {
    const std::string insert =
        "INSERT INTO \"" + std::string(table) + "\" (" + columns + kElevenValues;
    file.Add(file.Prepare(insert.c_str()).get(), rows);
}

/// Writes the rows that the program has stored, which costs it no thought.
void WriteSameRows(benchmark::State& state) {
    const auto systems = StoredRows("KeySystem", kSystemColumns);
    const auto patterns = StoredRows("Patterns", kPatternColumns);
    while (state.KeepRunning()) {
        const FreshFolder folder;
        BareFile file(folder.PathOf(kKeySystemFile));
        Time(state, [&] {
            file.Run("BEGIN IMMEDIATE");
            AddRows(file, "KeySystem", kSystemColumns, systems);
            AddRows(file, "Patterns", kPatternColumns, patterns);
            file.Run("COMMIT");
        });
    }
}

} // namespace

void AddCreate(std::vector<Comparison>& comparisons) {
    RegisterSelfTimed("create", CreateLargest);
    RegisterSelfTimed("same rows, bare", WriteSameRows);
    comparisons.push_back({"create", "same rows, bare", {Bound::Kind::TimesLimit, 1.5}});
}

} // namespace quorrel::bench
