#pragma once

#include "access/CompanyInfo.h"
#include "app/Program.h"
#include "support/TestProgram.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>

namespace quorrel::test {

/// A control of a form by its name. A name that does not exist fails the test and tells which do.
template <class Control>
Control* Find(QWidget* form, const char* name) {
    if (!form) {
        ADD_FAILURE() << "No form to look for " << name << " in";
        throw std::logic_error(name);
    }
    if (auto* control = form->findChild<Control*>(QLatin1String(name)))
        return control;
    QStringList names;
    for (const QObject* child : form->findChildren<QObject*>())
        if (!child->objectName().isEmpty() && !child->objectName().startsWith(u"qt_"))
            names.append(child->objectName());
    ADD_FAILURE() << form->objectName().toStdString() << " has no " << name << " among "
                  << names.join(u' ').toStdString();
    throw std::logic_error(name);
}

inline QString LabelText(QWidget* form, const char* name) {
    return Find<QLabel>(form, name)->text();
}

inline void Click(QWidget* form, const char* name) {
    auto* control = Find<QWidget>(form, name);
    EXPECT_TRUE(control->isEnabled() && control->isVisible()) << name << " cannot be clicked";
    QTest::mouseClick(control, Qt::LeftButton);
    QCoreApplication::processEvents();
}

/// Types over what a field holds, as a user does after clicking into it.
inline void Type(QWidget* form, const char* name, const QString& text) {
    auto* field = Find<QWidget>(form, name);
    field->setFocus();
    QCoreApplication::processEvents();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
    QCoreApplication::processEvents();
}

inline void Choose(QWidget* form, const char* action) {
    auto* entry = Find<QAction>(form, action);
    EXPECT_TRUE(entry->isEnabled()) << action;
    entry->trigger();
    QCoreApplication::processEvents();
}

/// A button that was pressed by its shortcut counts as clicked when it comes up again.
inline void LetButtonsComeUp(QWidget* form) {
    EXPECT_TRUE(QTest::qWaitFor([form] {
        const auto buttons = form->findChildren<QAbstractButton*>();
        return std::none_of(buttons.begin(), buttons.end(),
                            [](const QAbstractButton* button) { return button->isDown(); });
    }));
    QCoreApplication::processEvents();
}

/// Names of the controls that the tab key reaches, in its order, once round.
inline QStringList TabRound(QWidget* form) {
    form->activateWindow();
    QStringList names;
    const QWidget* first = form->focusWidget();
    for (int stop = 0; stop < 60; ++stop) {
        const QWidget* at = form->focusWidget();
        if (!at || (stop > 0 && at == first))
            break;
        names.append(at->objectName());
        QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
    }
    return names;
}

/// The whole program on a fresh program folder, its boxes answered by the test.
class RunningProgram : public TestProgram {
public:
    RunningProgram() : program(session) {
        QObject::connect(&program, &Program::Ended, &program, [this] { ended = true; });
    }

    /// Whatever happened, a user is never left with a running program and no window.
    ~RunningProgram() {
        QCoreApplication::processEvents();
        const QWidgetList windows = QApplication::topLevelWidgets();
        EXPECT_TRUE(ended || !m_started ||
                    std::any_of(windows.begin(), windows.end(),
                                [](const QWidget* window) { return window->isVisible(); }))
            << "No window is left of a program that still runs";
    }

    /// The form of a name, which must be on the screen.
    QWidget* Form(const char* name) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QWidget* form = program.LoadedForm(QLatin1String(name));
        EXPECT_TRUE(form && form->isVisible()) << name << " is not on the screen";
        m_started = true;
        return form;
    }

    bool IsLoaded(const char* name) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return program.LoadedForm(QLatin1String(name)) != nullptr;
    }

    /// Starts on a file with a company and logs on as the administrator.
    void StartAndLogOn() {
        RecordCompany();
        program.Start(false);
        boxes.Expect(QStringLiteral("Activate Auto-Logoff Y/N?"), BoxAnswer::No);
        Click(Form("frmLogon"), "cmdLogon");
    }

    /// Starts and opens a system, up to the main form.
    QWidget* OpenMain(const NewSystem& system) {
        CreateKeySystem(session, system);
        StartAndLogOn();
        Click(Form("frmOpenFile"), "cmdOpen");
        return Form("frmMain");
    }

    void RecordCompany() {
        CompanyInfoRow company;
        company.CompanyName = QStringLiteral("Harbour Locks");
        SaveCompanyInfo(session, company);
    }

    Program program;
    bool ended = false;

private:
    bool m_started = false; ///< a form has been on the screen
};

} // namespace quorrel::test
