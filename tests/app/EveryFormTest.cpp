#include "reports/SelectionReport.h"
#include "support/AllForms.h"
#include "widgets/TextCombo.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QDirIterator>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTableView>
#include <QWheelEvent>

/// \file
/// What holds in every window of the program, whatever its subject.

namespace quorrel::test {
namespace {

class EveryForm : public testing::TestWithParam<FormRoad> {};

std::string NameOf(const QObject* control) {
    return control->objectName().toStdString() + " (" + control->metaObject()->className() + ")";
}

QString Read(QWidget* control, QAccessible::Text kind = QAccessible::Name) {
    return QAccessible::queryAccessibleInterface(control)->text(kind);
}

/// The controls of a kind that are in a form's window itself, not in one that pops up over it.
template <class Control>
QList<Control*> In(QWidget* form) {
    QList<Control*> found = form->findChildren<Control*>();
    found.removeIf([form](Control* control) { return control->window() != form; });
    return found;
}

/// A form whose .ui file has no road to it would be tried by none of the tests here.
TEST(EveryFormThereIs, IsBroughtUpHere) {
    QSet<QString> roads;
    for (const FormRoad& road : AllForms())
        roads.insert(QLatin1String(road.form));
    QDirIterator files(QStringLiteral(QUORREL_SOURCES "/src"), {"frm*.ui"}, QDir::Files,
                       QDirIterator::Subdirectories);
    int seen = 0;
    for (; files.hasNext(); ++seen) {
        const QString form = QFileInfo(files.next()).baseName();
        EXPECT_TRUE(roads.contains(form)) << form.toStdString() << " is not among `AllForms`";
    }
    EXPECT_GT(seen, 15);
    for (const SelectionReport& report : SelectionReports())
        EXPECT_TRUE(roads.contains(report.form)) << report.form.toStdString();
}

// The tab key.

/// The tab stop that has the focus: the control itself or, as with the cells of the page, what
/// passes the focus on to its parts.
QWidget* StopAt(QWidget* form, const QList<QWidget*>& stops) {
    for (QWidget* at = form->focusWidget(); at && at != form; at = at->parentWidget())
        if (stops.contains(at))
            return at;
    return nullptr;
}

QList<QWidget*> TabStops(QWidget* form) {
    QList<QWidget*> stops;
    for (QWidget* control : In<QWidget>(form))
        if (control->isVisible() && control->isEnabled() && !control->focusProxy() &&
            control->focusPolicy() & Qt::TabFocus)
            stops.append(control);
    return stops;
}

std::string NamesOf(const QList<QWidget*>& controls) {
    QStringList names;
    for (const QWidget* control : controls)
        names += control->objectName();
    return names.join(' ').toStdString();
}

/// Where the tab key, or the one back, leads from here until it comes round.
QList<QWidget*> GoRound(QWidget* form, Qt::Key key) {
    const auto most = In<QWidget>(form).size();
    QList<QWidget*> round;
    while (round.size() < most && form->isVisible()) {
        QTest::keyClick(form->focusWidget() ? form->focusWidget() : form, key);
        QCoreApplication::processEvents();
        // Of radio buttons, those that are not checked cease to be stops once one has the focus.
        QWidget* at = StopAt(form, TabStops(form));
        if (!at || (!round.isEmpty() && at == round.first()))
            break;
        round.append(at);
    }
    return round;
}

TEST_P(EveryForm, TheTabKeyReachesEachControlOnceAndComesRound) {
    const FormOnScreen shown(GetParam());
    if (TabStops(shown.form).isEmpty())
        return;
    QList<QWidget*> round = GoRound(shown.form, Qt::Key_Tab);
    for (const QWidget* stop : TabStops(shown.form))
        EXPECT_EQ(round.count(stop), 1) << NameOf(stop);
    EXPECT_EQ(round.size(), TabStops(shown.form).size());
    // The walk ended at its first stop, from which the way back leads to its last.
    std::reverse(round.begin(), round.end());
    const QList<QWidget*> back = GoRound(shown.form, Qt::Key_Backtab);
    EXPECT_TRUE(back == round) << "the way back differs: " << NamesOf(back) << "\nnot "
                               << NamesOf(round);
}

// Mnemonics.

/// The Alt keys of a window, each with the controls that it leads to.
QMap<QString, QStringList> Mnemonics(QWidget* form) {
    QMap<QString, QStringList> found;
    const auto add = [&](const QObject* control, const QString& text) {
        if (const auto key = QKeySequence::mnemonic(text); !key.isEmpty())
            found[key.toString()] += control->objectName();
    };
    for (const QAbstractButton* button : In<QAbstractButton>(form))
        add(button, button->text());
    for (const QGroupBox* group : In<QGroupBox>(form))
        add(group, group->title());
    for (const QLabel* label : In<QLabel>(form))
        if (label->buddy())
            add(label, label->text());
    for (const QMenuBar* bar : In<QMenuBar>(form))
        for (const QAction* menu : bar->actions())
            add(menu->menu(), menu->text());
    return found;
}

void CheckMnemonics(QWidget* form) {
    const auto mnemonics = Mnemonics(form);
    for (auto key = mnemonics.begin(); key != mnemonics.end(); ++key)
        EXPECT_EQ(key->size(), 1) << key.key().toStdString() << ": "
                                  << key->join(' ').toStdString();
    for (const QMenu* menu : form->findChildren<QMenu*>()) {
        QMap<QString, QStringList> entries;
        for (const QAction* entry : menu->actions())
            if (const auto key = QKeySequence::mnemonic(entry->text()); !key.isEmpty())
                entries[key.toString()] += entry->objectName();
        // The captions of these two are what they have always been.
        if (entries.value("Alt+U") == QStringList{"mnuKeysByUsers", "mnuUnKeyed"})
            entries.remove("Alt+U");
        for (auto key = entries.begin(); key != entries.end(); ++key)
            EXPECT_EQ(key->size(), 1)
                << menu->objectName().toStdString() << " " << key->join(' ').toStdString();
    }
}

// Screen readers.

/// The text that a label has by design, null for one that is not in its window's design.
QString DesignedText(const QLabel* label) {
    for (const QWidget* part = label->parentWidget(); part; part = part->parentWidget()) {
        const QString name = QString(part->metaObject()->className()).section("::", -1);
        QDirIterator files(QStringLiteral(QUORREL_SOURCES "/src"), {name + ".ui"}, QDir::Files,
                           QDirIterator::Subdirectories);
        if (!files.hasNext())
            continue;
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            return {};
        const QString design = QString::fromUtf8(file.readAll());
        const QRegularExpression text(
            "name=\"" + label->objectName() +
                "\">(?:(?!</widget>).)*?name=\"text\">\\s*<string[^>]*?(?:/>|"
                ">(.*?)</string>)",
            QRegularExpression::DotMatchesEverythingOption);
        const auto found = text.match(design);
        QString designed = found.captured(1);
        designed.replace("&amp;", "&").replace("&lt;", "<").replace("&gt;", ">");
        return found.hasMatch() ? QString("") + designed : QString();
    }
    return {};
}

/// What a label that shows a value is read as must hold its caption too.
void CheckLabel(QLabel* label) {
    const QString text = label->text();
    const QString name = Read(label);
    if (text.isEmpty())
        return;
    const QString designed = DesignedText(label);
    // A label of a number is a caption or tells something at length.
    static const QRegularExpression prose("^$|^Label\\d");
    const bool named = !label->objectName().contains(prose);
    if (!named || text == designed)
        return;
    EXPECT_TRUE(name.contains(text)) << NameOf(label) << " is read as " << name.toStdString();
    // A value may follow on a caption in the label itself: "Record: 1" after "Record: 0".
    static const QRegularExpression value("[\\d\\s]*$");
    const QString stem = QString(designed).remove(value);
    const bool ownCaption = !stem.isEmpty() && text.startsWith(stem);
    EXPECT_TRUE(ownCaption || name.size() >= text.size() + 4)
        << NameOf(label) << " is read without its caption: " << name.toStdString();
}

void CheckNames(QWidget* form) {
    for (QLabel* label : In<QLabel>(form))
        CheckLabel(label);
    const auto named = [](QWidget* control) {
        EXPECT_FALSE(Read(control).trimmed().isEmpty()) << NameOf(control) << " has no name";
    };
    for (auto* list : In<QAbstractItemView>(form))
        if (!qobject_cast<QHeaderView*>(list))
            named(list);
    for (auto* combo : In<QComboBox>(form)) {
        named(combo);
        EXPECT_EQ(Read(combo, QAccessible::Value), combo->currentText()) << NameOf(combo);
    }
    for (auto* line : In<QLineEdit>(form))
        if (!line->focusProxy() && !qobject_cast<QAbstractSpinBox*>(line->parent()))
            named(line);
    for (auto* text : In<QPlainTextEdit>(form))
        named(text);
    for (auto* button : In<QAbstractButton>(form))
        if (button->focusPolicy() != Qt::NoFocus)
            named(button);
    for (auto* slider : In<QAbstractSlider>(form))
        if (slider->focusPolicy() != Qt::NoFocus)
            named(slider);
}

// Boxes that are typed in and rolled over.

void CheckTyping(QWidget* form) {
    for (auto* combo : In<QComboBox>(form)) {
        if (!combo->isEditable() || !combo->isEnabled())
            continue;
        EXPECT_TRUE(qobject_cast<TextCombo*>(combo)) << NameOf(combo);
        EXPECT_FALSE(combo->completer()) << NameOf(combo);
        EXPECT_GT(combo->count(), 0) << NameOf(combo) << " has nothing to complete";
        for (const QString& typed : {combo->itemText(0).left(2).toLower(), QString("zz")}) {
            combo->setFocus();
            combo->lineEdit()->clear();
            QTest::keyClicks(combo, typed);
            EXPECT_EQ(combo->currentText(), typed) << NameOf(combo);
        }
    }
}

/// Rolls the wheel over a control, both ways.
void RollOver(QWidget* control) {
    for (const int angle : {120, -120}) {
        const QPointF place = control->rect().center();
        QWheelEvent wheel(place, control->mapToGlobal(place), {}, QPoint(0, angle), Qt::NoButton,
                          {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(control, &wheel);
    }
}

void CheckWheel(QWidget* form) {
    for (auto* combo : In<QComboBox>(form)) {
        if (QWidget* focus = form->focusWidget())
            focus->clearFocus();
        const QString text = combo->currentText();
        const QSignalSpy changed(combo, &QComboBox::currentTextChanged);
        RollOver(combo);
        if (combo->lineEdit())
            RollOver(combo->lineEdit());
        EXPECT_EQ(combo->currentText(), text) << NameOf(combo);
        EXPECT_EQ(changed.count(), 0) << NameOf(combo);
    }
    for (auto* slider : In<QSlider>(form)) {
        const int value = slider->value();
        RollOver(slider);
        EXPECT_EQ(slider->value(), value) << NameOf(slider);
    }
    for (auto* box : In<QAbstractSpinBox>(form)) {
        const QString text = box->text();
        RollOver(box);
        EXPECT_EQ(box->text(), text) << NameOf(box);
    }
}

// Lists.

QPoint PlaceOf(const QAbstractItemView* list, int row) {
    return list->visualRect(list->model()->index(row, 0)).center();
}

void CheckLists(QWidget* form) {
    for (auto* view : In<QAbstractItemView>(form)) {
        if (!view->isVisible() || qobject_cast<QHeaderView*>(view))
            continue;
        EXPECT_GT(view->model()->rowCount(), 0) << NameOf(view) << " has nothing to choose";
        auto* list = qobject_cast<TextList*>(view);
        EXPECT_TRUE(list || qobject_cast<QTableView*>(view)) << NameOf(view);
        view->clearFocus();
        view->selectionModel()->clear();
        const QSignalSpy moved(view->selectionModel(), &QItemSelectionModel::currentChanged);
        const QSignalSpy chosen(view->selectionModel(), &QItemSelectionModel::selectionChanged);
        if (list)
            for (const auto reason : {Qt::TabFocusReason, Qt::ActiveWindowFocusReason}) {
                view->setFocus(reason);
                view->clearFocus();
            }
        QTest::mouseClick(view->viewport(), Qt::RightButton, {}, PlaceOf(view, 0));
        QTest::mouseDClick(view->viewport(), Qt::RightButton, {}, PlaceOf(view, 0));
        EXPECT_EQ(moved.count() + chosen.count(), 0) << NameOf(view);
    }
}

TEST_P(EveryForm, KeepsToWhatHoldsInAllOfThem) {
    const FormOnScreen shown(GetParam());
    CheckMnemonics(shown.form);
    CheckNames(shown.form);
    CheckLists(shown.form);
    CheckWheel(shown.form);
    CheckTyping(shown.form);
}

INSTANTIATE_TEST_SUITE_P(All, EveryForm, testing::ValuesIn(AllForms()),
                         [](const auto& road) { return std::string(road.param.form); });

} // namespace
} // namespace quorrel::test
