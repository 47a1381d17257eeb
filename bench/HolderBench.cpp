#include "BareFile.h"
#include "Benches.h"
#include "LargeSite.h"
#include "PaintWatch.h"
#include "holders/frmKeyUsers.h"
#include "store/DatabaseFiles.h"
#include "widgets/TextList.h"

#include <QLineEdit>

#include <memory>
#include <stdexcept>

namespace quorrel::bench {

namespace {

/// The form of key users on the screen with the holders and units of a large site.
class HolderForm {
public:
    HolderForm() : m_program(LargeSiteFolder().Path()) { m_program.OpenFirstSystem(); }

    void Open() {
        m_form.reset();
        m_watch.UntilPainted([&] {
            m_form = std::make_unique<frmKeyUsers>(m_program.session);
            m_form->show();
        });
        Require("lstKeyHolders", kSiteHolders);
    }

    void Type(const char* box, const QString& text) {
        m_watch.UntilPainted(
            [&] { m_form->findChild<QLineEdit*>(QLatin1String(box))->setText(text); });
    }

    void Choose(const char* name, int row) {
        m_watch.UntilPainted([&] {
            auto& list = List(name);
            list.SetCurrentRow(row);
            emit list.Clicked();
        });
    }

    /// Throws unless a list has at least some lines.
    void Require(const char* name, int lines) {
        if (List(name).Count() < lines)
            throw std::runtime_error("A list is not as long as it should be.");
    }

private:
    TextList& List(const char* name) { return *m_form->findChild<TextList*>(QLatin1String(name)); }

    QuietSession m_program;
    PaintWatch m_watch;
    std::unique_ptr<frmKeyUsers> m_form;
};

void OpenHolders(benchmark::State& state) {
    HolderForm form;
    while (state.KeepRunning())
        form.Open();
}

void SearchHolder(benchmark::State& state) {
    HolderForm form;
    form.Open();
    int keystroke = 0;
    while (state.KeepRunning()) {
        form.Type("txtUserSearch", keystroke++ % 2 ? QStringLiteral("1") : QString());
        form.Require("lstKeyHolders", 1);
    }
}

void ChooseHolder(benchmark::State& state) {
    HolderForm form;
    form.Open();
    int row = 0;
    while (state.KeepRunning())
        form.Choose("lstKeyHolders", row = (row + 7) % kSiteHolders);
}

/// The first key has a tenth of all units.
void ChooseUnits(benchmark::State& state) {
    HolderForm form;
    form.Open();
    form.Type("txtKeySearch", QLatin1String(kPopularKeyID));
    while (state.KeepRunning()) {
        form.Choose("lstKeyIDs", 0);
        form.Require("lstKeyUsers", kSiteUnits / 10);
    }
}

void Walk(benchmark::State& state, const char* select, std::size_t rows) {
    BareFile file(LargeSiteFolder().PathOf(kKeySystemFile));
    while (state.KeepRunning()) {
        const auto query = file.Prepare(select);
        if (file.Rows(query.get()).size() < rows)
            throw std::runtime_error("There are not as many rows as there should be.");
    }
}

void WalkHolders(benchmark::State& state) {
    Walk(state, "SELECT * FROM \"KeyUsers\" WHERE \"SystemNumber\" = 1", kSiteHolders);
}

void WalkUnits(benchmark::State& state) {
    Walk(state, "SELECT * FROM \"UsertoUnit\" WHERE \"SystemNumber\" = 1", kSiteUnits);
}

} // namespace

void AddHolders(std::vector<Comparison>& comparisons) {
    const Bound list{Bound::Kind::Seconds, 0.05};
    const char* holders = "walk of the site's holders, bare";
    const char* units = "walk of the site's units, bare";
    Register(holders, WalkHolders);
    Register(units, WalkUnits);
    Register("key users opened, painted", OpenHolders);
    Register("keystroke in user search, painted", SearchHolder);
    Register("chosen user, painted", ChooseHolder);
    Register("units of a chosen key, painted", ChooseUnits);
    comparisons.push_back({"key users opened, painted", holders, list});
    comparisons.push_back({"keystroke in user search, painted", holders, list});
    comparisons.push_back({"chosen user, painted", holders, list});
    comparisons.push_back({"units of a chosen key, painted", units, list});
}

} // namespace quorrel::bench
