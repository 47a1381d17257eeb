#pragma once

#include "LargestSystem.h"
#include "PaintWatch.h"
#include "widgets/TextList.h"

#include <QLineEdit>
#include <QPushButton>

#include <functional>
#include <memory>
#include <stdexcept>

namespace quorrel::bench {

/// A form on the screen with the first system of a folder open. What the user does takes as long
/// as until it is painted.
template <class Form>
class SiteForm {
public:
    explicit SiteForm(const QString& folder) : m_program(folder) { m_program.OpenFirstSystem(); }

    /// Opens it anew, with its lists filled.
    void Open() {
        Open([](Session& session) { return std::make_unique<Form>(session); });
    }
    void Open(const std::function<std::unique_ptr<Form>(Session&)>& make) {
        m_form.reset();
        m_watch.UntilPainted([&] {
            m_form = make(m_program.session);
            m_form->show();
        });
    }

    void Type(const char* box, const QString& text) {
        m_watch.UntilPainted([&] { Find<QLineEdit>(box).setText(text); });
    }

    void Choose(const char* name, int row) {
        m_watch.UntilPainted([&] {
            auto& list = Find<TextList>(name);
            list.SetCurrentRow(row);
            emit list.Clicked();
        });
    }

    void Press(const char* button) {
        m_watch.UntilPainted([&] { Find<QPushButton>(button).click(); });
    }

    /// Throws unless a list has at least some lines.
    void Require(const char* list, int lines) {
        if (Find<TextList>(list).Count() < lines)
            throw std::runtime_error("A list is not as long as it should be.");
    }

    template <class Control>
    Control& Find(const char* name) {
        return *m_form->template findChild<Control*>(QLatin1String(name));
    }

    PaintWatch& Watch() { return m_watch; }
    Form& Window() { return *m_form; }

private:
    QuietSession m_program;
    PaintWatch m_watch;
    std::unique_ptr<Form> m_form;
};

} // namespace quorrel::bench
