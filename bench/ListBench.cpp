#include "BareFile.h"
#include "Benches.h"
#include "LargeSite.h"
#include "PaintWatch.h"
#include "engine/PageGeometry.h"
#include "page/frmMain.h"
#include "store/DatabaseFiles.h"
#include "widgets/TextList.h"

#include <QLineEdit>
#include <QPushButton>

#include <memory>
#include <stdexcept>

namespace quorrel::bench {

namespace {

/// The main form on the screen with the system of a large site.
class SitePage {
public:
    explicit SitePage(const QString& folder) : m_program(folder) {
        m_program.OpenFirstSystem();
        m_form = std::make_unique<frmMain>(m_program.session);
        m_watch.UntilPainted([this] { m_form->show(); });
    }

    /// Selects a key by the list of Key IDs.
    void Select(const QString& keyID) {
        Find<QLineEdit>("txtSearchAll").setText(keyID);
        Fill("cmdKeyList", "lstAllIDs", 1);
        Find<TextList>("lstAllIDs").SetCurrentRow(0);
        emit Find<TextList>("lstAllIDs").Clicked();
        if (KeyID() != keyID)
            throw std::runtime_error("The key is not the selected one.");
    }

    /// Fills a list until it is painted with at least some lines.
    void Fill(const char* button, const char* list, int leastLines) {
        m_watch.UntilPainted([&] { Find<QPushButton>(button).click(); });
        if (Find<TextList>(list).Lines().size() < leastLines)
            throw std::runtime_error("A list is not as long as it should be.");
    }

    void Click(int cell) {
        m_watch.UntilPainted([&] { m_form->ClickCell(cell); });
    }

    QString KeyID() { return Find<QLineEdit>("txtKeyID").text(); }
    void TypeKeyID(const QString& keyID) { Find<QLineEdit>("txtKeyID").setText(keyID); }

private:
    template <class Control>
    Control& Find(const char* name) {
        return *m_form->findChild<Control*>(QLatin1String(name));
    }

    QuietSession m_program;
    PaintWatch m_watch;
    std::unique_ptr<frmMain> m_form;
};

void ListKeys(benchmark::State& state) {
    SitePage form(LargeSiteFolder().Path());
    while (state.KeepRunning())
        form.Fill("cmdKeyList", "lstAllIDs", kSiteKeys);
}

void ListDoors(benchmark::State& state, const char* keyID, int doors) {
    SitePage form(LargeSiteFolder().Path());
    form.Select(QLatin1String(keyID));
    while (state.KeepRunning())
        form.Fill("cmdListDoors", "lstActiveDoors", doors);
}

void ListUsers(benchmark::State& state) {
    SitePage form(LargeSiteFolder().Path());
    form.Select(QLatin1String(kPopularKeyID));
    while (state.KeepRunning())
        form.Fill("cmdListUsers", "lstKeyUsers", kSiteUnits / 10);
}

/// Reads every row of a table, as a list that knows no better would.
void WalkTable(benchmark::State& state, const char* select, std::size_t leastRows) {
    BareFile file(LargeSiteFolder().PathOf(kKeySystemFile));
    while (state.KeepRunning())
        if (file.Rows(file.Prepare(select).get()).size() < leastRows)
            throw std::runtime_error("A table is not as long as it should be.");
}

/// The main form at work on a copy of the site, with keys still to be named.
class NamingForm {
public:
    NamingForm() : m_form(m_site.Path()) {}

    /// Types a Key ID for the next key that has none.
    void TypeKeyID() {
        do
            m_form.Click(m_cell = (m_cell + 2) % kFirstLevelCell);
        while (!m_form.KeyID().isEmpty());
        m_form.TypeKeyID(QStringLiteral("N%1").arg(m_cell));
    }

    void ClickOn() { m_form.Click(m_cell + 1); }

private:
    LargeSiteCopy m_site;
    SitePage m_form;
    int m_cell = 0;
};

void NameAndClickOn(benchmark::State& state) {
    NamingForm form;
    form.TypeKeyID();
    while (state.KeepRunning()) {
        form.ClickOn(); // The first time, without being measured, for what is read but once.
        form.TypeKeyID();
        Time(state, [&] { form.ClickOn(); });
    }
}

/// Stores what the naming of a key stores at least, which is mostly a wait for the disk.
void StoreName(BareFile& file) {
    file.Run("BEGIN IMMEDIATE");
    file.Run("UPDATE \"Patterns\" SET \"Label\" = 'N1          ' WHERE \"RowKey\" = 10000");
    file.Run("INSERT INTO \"AllKeys\" (\"SystemNumber\", \"KeyID\") VALUES (1, 'N1          ')");
    file.Run("COMMIT");
}

void StoreNames(benchmark::State& state) {
    const LargeSiteCopy site;
    BareFile file(site.PathOf(kKeySystemFile));
    StoreName(file);
    while (state.KeepRunning())
        Time(state, [&] { StoreName(file); });
}

constexpr const char* kAllPatterns = "SELECT * FROM \"Patterns\" WHERE \"SystemNumber\" = 1";
constexpr const char* kAllDoors = "SELECT * FROM \"Doors\" WHERE \"SystemNumber\" = 1";
constexpr const char* kAllHeldUnits = "SELECT * FROM \"UsertoUnit\" WHERE \"SystemNumber\" = 1";

} // namespace

void AddLists(std::vector<Comparison>& comparisons) {
    const Bound list{Bound::Kind::Seconds, 0.05};
    const Bound frame{Bound::Kind::Seconds, 0.016};
    Register("list all Key IDs, painted", ListKeys);
    Register("walk of the keys, bare",
             [](auto& state) { WalkTable(state, kAllPatterns, kLargestPages * kPageCells); });
    Register("list doors of a key, painted",
             [](auto& state) { ListDoors(state, kPopularKeyID, kSiteDoors / 10); });
    Register("list doors of grand master, painted",
             [](auto& state) { ListDoors(state, kUppermostKeyID, kSiteDoors); });
    Register("walk of the doors, bare",
             [](auto& state) { WalkTable(state, kAllDoors, kSiteDoors); });
    Register("list users of a key, painted", ListUsers);
    Register("walk of the held units, bare",
             [](auto& state) { WalkTable(state, kAllHeldUnits, kSiteUnits); });
    RegisterSelfTimed("name a key, click on, painted", NameAndClickOn);
    RegisterSelfTimed("name of a key stored, bare", StoreNames);
    comparisons.push_back({"list all Key IDs, painted", "walk of the keys, bare", list});
    comparisons.push_back({"list doors of a key, painted", "walk of the doors, bare", list});
    comparisons.push_back({"list doors of grand master, painted", "walk of the doors, bare", list});
    comparisons.push_back({"list users of a key, painted", "walk of the held units, bare", list});
    comparisons.push_back({"name a key, click on, painted", "name of a key stored, bare", frame});
}

} // namespace quorrel::bench
