#include "Benches.h"
#include "LargestSystem.h"
#include "PaintWatch.h"
#include "engine/Preview.h"
#include "systems/frmCreateFile.h"

#include <QLabel>
#include <QLineEdit>

#include <memory>
#include <stdexcept>

namespace quorrel::bench {

namespace {

void CountAndWrite(benchmark::State& state) {
    const SystemDefinition definition = LargestDefinition();
    while (state.KeepRunning()) {
        const UsableKeys usable = CountUsableKeys(definition);
        for (std::size_t page = 0; page < usable.perPage.size(); ++page)
            benchmark::DoNotOptimize(PreviewLine(static_cast<int>(page) + 1, usable.perPage[page]));
    }
}

/// The form on the screen, waiting for the last cut of a master key of seven.
class DefiningForm {
public:
    DefiningForm() : m_program(LargestFolder().Path()) {
        m_form = std::make_unique<frmCreateFile>(m_program.session);
        m_master = m_form->findChild<QLineEdit*>(QStringLiteral("txtMasterKey"));
        m_form->findChild<QLineEdit*>(QStringLiteral("txtNumberofPins"))
            ->setText(QStringLiteral("7"));
        m_watch.UntilPainted([this] { m_form->show(); });
        Type();
        const auto* total = m_form->findChild<QLabel*>(QStringLiteral("lblTotalChanges"));
        if (!total->text().endsWith(QStringLiteral("= 16384")))
            throw std::runtime_error("The preview shows another system than the largest.");
    }

    /// Changes the last cut, so that each time the whole preview is made anew.
    void Type() {
        m_master->setText(m_other ? QStringLiteral("3951726") : QStringLiteral("3951728"));
        m_other = !m_other;
    }

    void TypeUntilPainted() {
        m_watch.UntilPainted([this] { Type(); });
    }

private:
    QuietSession m_program;
    PaintWatch m_watch;
    std::unique_ptr<frmCreateFile> m_form;
    QLineEdit* m_master = nullptr;
    bool m_other = false;
};

void TypeInWindow(benchmark::State& state) {
    DefiningForm form;
    while (state.KeepRunning())
        form.Type();
}

void TypeUntilPainted(benchmark::State& state) {
    DefiningForm form;
    while (state.KeepRunning())
        form.TypeUntilPainted();
}

constexpr int kCombinations = 5 * 5 * 5 * 5 * 5 * 5 * 5;

void RunOverCombinations(benchmark::State& state) {
    while (state.KeepRunning()) {
        for (int combination = 0; combination < kCombinations; ++combination)
            benchmark::DoNotOptimize(combination);
    }
}

} // namespace

void AddPreview(std::vector<Comparison>& comparisons) {
    const char* limit = "loop over 5^7 combinations";
    const Bound keystroke{Bound::Kind::Seconds, 0.002};
    Register("preview, counted and written", CountAndWrite);
    Register("preview, in the window", TypeInWindow);
    Register("preview, painted", TypeUntilPainted);
    Register(limit, RunOverCombinations);
    comparisons.push_back({"preview, counted and written", limit, keystroke});
    comparisons.push_back({"preview, in the window", limit, keystroke});
    // To the screen it is held to one frame, as all that is painted.
    comparisons.push_back({"preview, painted", limit, {Bound::Kind::Seconds, 0.016}});
}

} // namespace quorrel::bench
