#include "Walker.h"

#include "app/Program.h"
#include "widgets/Form.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTextBrowser>

#include <iostream>

namespace quorrel::tour {

namespace {

constexpr int kPatience = 15000; // milliseconds
constexpr int kLook = 25;        // milliseconds

/// The part of a control that takes the keys.
QWidget& Typable(QWidget& control) {
    auto* combo = qobject_cast<QComboBox*>(&control);
    return combo && combo->lineEdit() ? *combo->lineEdit() : control;
}

/// Whether a control lies in an area that scrolls.
bool Scrolls(const QWidget& control) {
    for (const QWidget* at = control.parentWidget(); at; at = at->parentWidget())
        if (qobject_cast<const QAbstractScrollArea*>(at))
            return true;
    return false;
}

/// Whether a window lies wholly on the free screen, with its frame. Where the window manager was
/// slow to give it that, the toolkit keeps figures of the frame in which the window has no room.
bool LiesOnScreen(const QWidget& window) {
    const QRect frame = window.frameGeometry();
    const QRect content = window.geometry();
    return window.screen()->availableGeometry().contains(frame.contains(content) ? frame : content);
}

} // namespace

Walker::Walker(const Program& program, const QString& pictureFolder)
    : m_program(program), m_pictures(pictureFolder) {
    if (!QDir().mkpath(pictureFolder))
        throw WalkFailed(QStringLiteral("Cannot make the folder %1").arg(pictureFolder));
    QObject::connect(&m_watch, &QTimer::timeout, [this] { Watch(); });
    m_watch.start(kLook);
}

void Walker::Step(const QString& name, const std::function<void()>& walk) {
    m_step = name;
    try {
        walk();
        Settle();
    } catch (const std::exception& error) {
        throw WalkFailed(QStringLiteral("Step \"%1\": %2").arg(name, error.what()));
    }
}

QWidget* Walker::ShownWindow(const QString& name) const {
    QWidget* loaded = m_program.LoadedForm(name);
    if (loaded && loaded->isVisible())
        return loaded;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == name && window->isVisible())
            return window;
    return nullptr;
}

void Walker::Enter(const char* window) {
    const QString name = QLatin1String(window);
    m_window = nullptr;
    const bool shown = QTest::qWaitFor(
        [&] {
            m_window = ShownWindow(name);
            return m_window || !m_failure.isEmpty();
        },
        kPatience);
    Settle();
    if (!shown) {
        QStringList others;
        for (const QWidget* other : QApplication::topLevelWidgets())
            if (other->isVisible())
                others.append(other->objectName());
        throw WalkFailed(QStringLiteral("%1 is not shown. Shown: %2")
                             .arg(name, others.join(QStringLiteral(", "))));
    }
    Check(QTest::qWaitForWindowExposed(m_window.data(), kPatience), name + " is not exposed");
    Activate();
    Settle();
    CheckFit();
}

/// A control may lie outside only where it can be scrolled to.
void Walker::CheckFit() const {
    // The window manager gives it its frame and its place in steps.
    Check(QTest::qWaitFor([this] { return LiesOnScreen(Window()); }, kPatience),
          Window().objectName() + " does not lie wholly on the screen");
    for (const QWidget* control : Window().findChildren<QWidget*>()) {
        if (control->window() != m_window || !control->isVisible() || Scrolls(*control))
            continue;
        const QRect place(control->mapTo(m_window.data(), QPoint()), control->size());
        Check(Window().rect().contains(place),
              control->objectName() + " lies outside " + Window().objectName());
    }
}

void Walker::ExpectGone(const char* window) {
    const QString name = QLatin1String(window);
    Check(QTest::qWaitFor([&] { return !ShownWindow(name); }, kPatience), name + " is still shown");
    Settle();
}

QWidget& Walker::Window() const {
    if (!m_window)
        throw WalkFailed(QStringLiteral("The window is gone"));
    return *m_window;
}

/// What a window manager does when a window over this one is closed.
void Walker::Activate() const {
    if (Window().isActiveWindow())
        return;
    Window().activateWindow();
    Check(QTest::qWaitForWindowActive(m_window.data(), kPatience),
          Window().objectName() + " does not become active");
}

WalkFailed Walker::NotFound(const QString& name) const {
    QStringList there;
    for (const QWidget* child : Window().findChildren<QWidget*>())
        if (!child->objectName().isEmpty() && !child->objectName().startsWith("qt_"))
            there.append(child->objectName() + ' ' + child->metaObject()->className());
    return WalkFailed(QStringLiteral("%1 has no such control as %2. It has: %3")
                          .arg(Window().objectName(), name, there.join(QStringLiteral(", "))));
}

QWidget& Walker::Usable(const QString& name) const {
    QWidget& control = Find(name);
    Check(control.isVisible(), name + " cannot be seen");
    Check(control.isEnabled(), name + " is dimmed");
    Activate();
    return control;
}

void Walker::Click(const QString& name) {
    QTest::mouseClick(&Usable(name), Qt::LeftButton);
    Settle();
}

void Walker::ClickLine(const QString& name, int line) {
    auto& list = dynamic_cast<QAbstractItemView&>(Usable(name));
    const QModelIndex index = list.model()->index(line, 0);
    list.scrollTo(index);
    const QRect place = list.visualRect(index);
    Check(!place.isEmpty(), QStringLiteral("%1 has no line %2").arg(name).arg(line));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place.center());
    Settle();
}

void Walker::ClickLine(const QString& name, const QString& begin) {
    const auto& model = *Find<QAbstractItemView>(name).model();
    for (int line = 0; line < model.rowCount(); ++line)
        if (model.index(line, 0).data().toString().startsWith(begin)) {
            ClickLine(name, line);
            return;
        }
    throw WalkFailed(QStringLiteral("%1 has no line \"%2\"").arg(name, begin));
}

void Walker::Type(const QString& name, const QString& text) {
    QWidget& control = Typable(Usable(name));
    control.setFocus();
    QTest::keyClick(&control, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        QTest::keyClick(&control, Qt::Key_Delete);
    const QStringList lines = text.split(u'\n');
    for (const QString& line : lines) {
        QTest::keyClicks(&control, line);
        if (&line != &lines.last())
            QTest::keyClick(&control, Qt::Key_Return);
    }
    Settle();
}

void Walker::Press(const QString& name, Qt::Key key) {
    QTest::keyClick(&Typable(Usable(name)), key);
    Settle();
}

void Walker::Press(Qt::Key key) {
    Activate();
    QTest::keyClick(&Window(), key);
    Settle();
}

QMenu& Walker::OpenMenu(const char* menu) {
    auto& popup = Find<QMenu>(QLatin1String(menu));
    auto& bar = Find<QMenuBar>(QStringLiteral("menubar"));
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(popup.menuAction()).center());
    Check(QTest::qWaitFor([&] { return popup.isVisible(); }, kPatience),
          QStringLiteral("%1 does not open").arg(QLatin1String(menu)));
    return popup;
}

void Walker::ChooseFromMenu(const char* menu, const char* action) {
    auto* line = Window().findChild<QAction*>(QLatin1String(action));
    if (!line)
        throw NotFound(QLatin1String(action));
    Check(line->isEnabled(), QStringLiteral("%1 is dimmed").arg(QLatin1String(action)));
    QMenu& popup = OpenMenu(menu);
    QTest::mouseClick(&popup, Qt::LeftButton, {}, popup.actionGeometry(line).center());
    Settle();
}

void Walker::ExpectBox(const QString& text, QMessageBox::StandardButton answer,
                       const QString& picture) {
    m_expected.push_back({Dialog::Box, text, answer, picture});
}

void Walker::ExpectFileDialog(const QString& path, const QString& picture) {
    m_expected.push_back({Dialog::Files, path, QMessageBox::Ok, picture});
}

void Walker::ExpectInput(const QString& text, const QString& picture) {
    m_expected.push_back({Dialog::Input, text, QMessageBox::Ok, picture});
}

void Walker::Picture(const QString& name) {
    Settle();
    Keep(Window(), name);
    Settle();
}

void Walker::PictureOfMenu(const char* menu, const QString& name) {
    Activate();
    QMenu& popup = OpenMenu(menu);
    Settle();
    Keep(popup, name);
    popup.close();
    Settle();
}

void Walker::Check(bool fact, const QString& what) const {
    if (!fact)
        throw WalkFailed(what);
}

void Walker::CheckText(const QString& control, const QString& expected) const {
    const QString text = TextOf(control);
    Check(text == expected,
          QStringLiteral("%1 shows \"%2\", not \"%3\"").arg(control, text, expected));
}

void Walker::CheckContains(const QString& control, const QString& part) const {
    const QString text = TextOf(control);
    Check(text.contains(part),
          QStringLiteral("%1 shows \"%2\", without \"%3\"").arg(control, text, part));
}

void Walker::CheckFocus(const QString& control) const {
    const QWidget* focus = Window().focusWidget();
    QWidget& wanted = Find(control);
    Check(focus == &wanted || focus == &Typable(wanted),
          QStringLiteral("The focus is on %1, not on %2")
              .arg(focus ? focus->objectName() : QStringLiteral("nothing"), control));
}

QString Walker::TextOf(const QString& control) const {
    QWidget& widget = Find(control);
    if (const auto* label = qobject_cast<QLabel*>(&widget))
        return label->text();
    if (const auto* line = qobject_cast<QLineEdit*>(&widget))
        return line->text();
    if (const auto* lines = qobject_cast<QPlainTextEdit*>(&widget))
        return lines->toPlainText();
    if (const auto* combo = qobject_cast<QComboBox*>(&widget))
        return combo->currentText();
    if (const auto* page = qobject_cast<QTextBrowser*>(&widget))
        return page->toPlainText();
    throw WalkFailed(control + " has no text");
}

/// Lets the windows catch up, and tells what was noted meanwhile.
void Walker::Settle() {
    QTest::qWait(2 * kLook);
    const bool answered =
        QTest::qWaitFor([this] { return m_expected.empty() || !m_failure.isEmpty(); }, kPatience);
    if (!m_failure.isEmpty())
        throw WalkFailed(std::exchange(m_failure, {}));
    if (answered)
        return;
    const Expected missing = m_expected.front();
    m_expected.clear();
    throw WalkFailed(missing.dialog == Dialog::Box
                         ? QStringLiteral("No box said: %1").arg(missing.text)
                         : QStringLiteral("No dialog came up for %1").arg(missing.text));
}

void Walker::Watch() {
    QWidget* dialog = QApplication::activeModalWidget();
    // A form of the program is walked as any other, even where it keeps the others waiting.
    if (!dialog || !dialog->isVisible() || dynamic_cast<FormCore*>(dialog)) {
        m_met = nullptr;
        return;
    }
    // At the second look it has been laid out and painted.
    if (m_met != dialog) {
        m_met = dialog;
        return;
    }
    Meet(*dialog);
}

/// Called from the event loop of the dialog, so nothing may be thrown here.
void Walker::Meet(QWidget& dialog) {
    auto* box = qobject_cast<QMessageBox*>(&dialog);
    auto* files = qobject_cast<QFileDialog*>(&dialog);
    auto* input = qobject_cast<QInputDialog*>(&dialog);
    const auto is = [&](Dialog kind) {
        return (kind == Dialog::Box && box) || (kind == Dialog::Files && files) ||
               (kind == Dialog::Input && input);
    };
    if (m_expected.empty() || !is(m_expected.front().dialog)) {
        Note(QStringLiteral("Unexpected: %1")
                 .arg(box ? box->text() : QLatin1String(dialog.metaObject()->className())));
        dialog.close();
        return;
    }
    const Expected expected = m_expected.front();
    m_expected.pop_front();
    if (box)
        Answer(*box, expected);
    else
        TypeInto(static_cast<QDialog&>(dialog), expected);
}

void Walker::TypeInto(QDialog& dialog, const Expected& expected) {
    // A file dialog has other lines than the one for the name.
    auto* line = expected.dialog == Dialog::Files
                     ? dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
                     : dialog.findChild<QLineEdit*>();
    if (!line) {
        Note(QStringLiteral("The dialog has no place for a text"));
        dialog.close();
        return;
    }
    QTest::keyClicks(line, expected.text);
    Keep(dialog, expected.picture);
    QTest::keyClick(line, Qt::Key_Return);
}

void Walker::Answer(QMessageBox& box, const Expected& expected) {
    if (!box.text().contains(expected.text))
        Note(QStringLiteral("A box says \"%1\", not \"%2\"").arg(box.text(), expected.text));
    Keep(box, expected.picture);
    QAbstractButton* button = box.button(expected.answer);
    if (button) {
        QTest::mouseClick(button, Qt::LeftButton);
        return;
    }
    Note(QStringLiteral("The box \"%1\" does not offer the answer").arg(box.text()));
    box.close();
}

void Walker::Keep(QWidget& window, const QString& name) {
    const QString file = QStringLiteral("%1-%2.png").arg(++m_count, 2, 10, QChar(u'0')).arg(name);
    if (!window.grab().save(QDir(m_pictures).filePath(file)))
        Note(QStringLiteral("Cannot save the picture %1").arg(file));
    std::cout << m_step.toStdString() << ": " << file.toStdString() << std::endl;
}

/// The first failure counts; what comes after it is mostly its consequence.
void Walker::Note(const QString& failure) {
    if (m_failure.isEmpty())
        m_failure = failure;
}

} // namespace quorrel::tour
