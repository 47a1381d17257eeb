#include "BareFile.h"
#include "Benches.h"
#include "LargeSite.h"
#include "PaintWatch.h"
#include "pinning/NamedKeys.h"
#include "pinning/frmPinningChart.h"
#include "store/DatabaseFiles.h"

#include <QLabel>
#include <QPushButton>

#include <stdexcept>

namespace quorrel::bench {

namespace {

/// The chart of a key of a large site on the screen.
class ChartForm {
public:
    ChartForm() : m_program(LargeSiteFolder().Path()) {
        m_program.OpenFirstSystem();
        PinningRequest request;
        request.key = "1113100"; // the first change key
        request.master = LargestDefinition().master;
        m_form = std::make_unique<frmPinningChart>(m_program.session,
                                                   MakePinningChart(m_program.session, request));
        m_watch.UntilPainted([this] { m_form->show(); });
    }

    void GoTo(const char* button) {
        const QString before = KeyID();
        m_watch.UntilPainted(
            [&] { m_form->findChild<QPushButton*>(QLatin1String(button))->click(); });
        if (KeyID() == before)
            throw std::runtime_error("The chart stays with its key.");
    }

private:
    QString KeyID() const { return m_form->findChild<QLabel*>(QStringLiteral("lblKeyID"))->text(); }

    QuietSession m_program;
    PaintWatch m_watch;
    std::unique_ptr<frmPinningChart> m_form;
};

/// To the next named key and back, in turns.
void GoOn(benchmark::State& state) {
    ChartForm form;
    bool forward = true;
    form.GoTo("cmdNext");
    while (state.KeepRunning()) {
        form.GoTo(forward ? "cmdNext" : "cmdPrevious");
        forward = !forward;
    }
}

void WalkKeys(benchmark::State& state) {
    BareFile file(LargeSiteFolder().PathOf(kKeySystemFile));
    while (state.KeepRunning()) {
        const auto query = file.Prepare(
            "SELECT \"Serial\", \"Label\" FROM \"Patterns\" WHERE \"SystemNumber\" = 1");
        if (file.Rows(query.get()).size() < 20000)
            throw std::runtime_error("The site has not the keys that it should have.");
    }
}

} // namespace

void AddPinning(std::vector<Comparison>& comparisons) {
    const char* limit = "walk over the keys of the system";
    Register("chart, to the next named key", GoOn);
    Register(limit, WalkKeys);
    comparisons.push_back({"chart, to the next named key", limit, {Bound::Kind::Seconds, 0.05}});
}

} // namespace quorrel::bench
