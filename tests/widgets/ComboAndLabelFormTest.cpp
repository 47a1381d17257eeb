#include "widgets/ElidedLabel.h"
#include "widgets/Manners.h"
#include "widgets/TextCombo.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace quorrel::test {
namespace {

/// Rolls the wheel over a control by one notch. True when the window under it may roll.
bool RollOver(QWidget* control) {
    const QPointF place = control->rect().center();
    QWheelEvent wheel(place, control->mapToGlobal(place), {}, QPoint(0, -120), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(control, &wheel);
    return !wheel.isAccepted();
}

TEST(TextComboTest, WhatIsTypedStaysAsTyped) {
    QWidget window;
    TextCombo combo(&window);
    QLineEdit other(&window);
    combo.SetTexts({"LABORATORY", "Office", "office 2"});
    window.show();
    window.activateWindow();
    QCoreApplication::processEvents();
    for (const char* typed : {"LAB", "OFFICE", "laboratory", "x"}) {
        combo.setFocus();
        combo.lineEdit()->clear();
        const QSignalSpy chosen(&combo, &QComboBox::activated);
        QTest::keyClicks(&combo, typed);
        QTest::keyClick(&combo, Qt::Key_Return);
        other.setFocus();
        EXPECT_EQ(combo.currentText(), typed);
        EXPECT_EQ(chosen.count(), 0) << typed;
        EXPECT_EQ(combo.count(), 3) << typed;
    }
}

TEST(TextComboTest, CodeFillsItWithoutASignalAndKeepsTheCursor) {
    TextCombo combo;
    combo.SetTexts({"One", "Two"}, "Other");
    EXPECT_EQ(combo.currentText(), "Other");
    const QSignalSpy edited(&combo, &QComboBox::editTextChanged);
    const QSignalSpy shown(&combo, &QComboBox::currentTextChanged);
    const QSignalSpy moved(&combo, &QComboBox::currentIndexChanged);
    combo.lineEdit()->setSelection(1, 2);
    combo.Refill({"Two", "Three", "Other"});
    EXPECT_EQ(combo.currentText(), "Other");
    EXPECT_EQ(combo.currentIndex(), 2);
    EXPECT_EQ(combo.lineEdit()->selectedText(), "th");
    EXPECT_EQ(combo.Texts().size(), 3);
    combo.SetTexts({"Two"});
    EXPECT_EQ(combo.currentText(), "");
    EXPECT_EQ(edited.count() + shown.count() + moved.count(), 0);
}

TEST(MannersTest, AHeldEnterKeyIsPressedOnce) {
    InstallManners();
    QPlainTextEdit box;
    box.show();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_A})
        for (const bool held : {false, true, true}) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier,
                            key == Qt::Key_A ? QStringLiteral("a") : QStringLiteral("\r"), held);
            QApplication::sendEvent(&box, &press);
        }
    // A repetition without its mark comes at the moment of its release.
    for (const auto& [type, at] : {std::pair{QEvent::KeyPress, 100U},
                                   {QEvent::KeyRelease, 140U},
                                   {QEvent::KeyPress, 140U},
                                   {QEvent::KeyRelease, 180U},
                                   {QEvent::KeyPress, 200U}}) {
        QKeyEvent key(type, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        key.setTimestamp(at);
        QApplication::sendEvent(&box, &key);
    }
    EXPECT_EQ(box.toPlainText(), "\n\naaa\n\n");
}

TEST(MannersTest, TheWheelChangesNothingThatHasNotTheFocus) {
    InstallManners();
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* plain = new QComboBox;
    plain->addItems({"one", "two", "three"});
    auto* combo = new TextCombo;
    combo->SetTexts({"one", "two", "three"}, "one");
    auto* spin = new QSpinBox;
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setInvertedControls(true); // Else it stands at its end already.
    auto* other = new QLineEdit;
    for (QWidget* control : std::initializer_list<QWidget*>{plain, combo, spin, slider, other})
        layout->addWidget(control);
    spin->setRange(-5, 5);
    window.show();
    window.activateWindow();
    QCoreApplication::processEvents();
    other->setFocus();
    const auto values = [&] {
        return QStringList{plain->currentText(), combo->currentText(), spin->text(),
                           QString::number(slider->value())};
    };
    const QStringList before = values();
    for (QWidget* control : std::initializer_list<QWidget*>{plain, combo, spin, slider})
        EXPECT_TRUE(RollOver(control)) << control->metaObject()->className();
    RollOver(combo->lineEdit());
    EXPECT_EQ(values(), before);
    for (QWidget* control : std::initializer_list<QWidget*>{plain, combo, spin, slider}) {
        control->setFocus();
        RollOver(control);
    }
    for (int control = 0; control < before.size(); ++control)
        EXPECT_NE(values()[control], before[control]) << control;
}

QString Read(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

TEST(MannersTest, ALabelIsReadWithItsCaptionAndItsValue) {
    InstallManners();
    QWidget window;
    QLabel cuts("111310", &window), caption("Lock Brand && &Type", &window), brand("", &window),
        date("Date Created: 3/15", &window), rich("<b>Bold</b> text", &window);
    cuts.setAccessibleName("Key Cuts");
    caption.setBuddy(&brand);
    date.setAccessibleName("Date Created");
    EXPECT_EQ(Read(&cuts), "Key Cuts: 111310");
    EXPECT_EQ(Read(&caption), "Lock Brand & Type");
    EXPECT_EQ(Read(&brand), "Lock Brand & Type");
    EXPECT_EQ(Read(&date), "Date Created: 3/15");
    EXPECT_EQ(Read(&rich), "Bold text");
    cuts.setText("");
    brand.setTextFormat(Qt::PlainText);
    brand.setText("<b>ilder & Co");
    EXPECT_EQ(Read(&cuts), "Key Cuts") << "read anew each time";
    EXPECT_EQ(Read(&brand), "Lock Brand & Type: <b>ilder & Co");
}

TEST(ElidedLabelTest, HoldsALongTextOnOneLineAndTellsItWhole) {
    InstallManners();
    const QString whole = QString("Boiler <i>room</i>\n& store ").repeated(20);
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* label = new ElidedLabel;
    label->setAccessibleName("Use");
    layout->addWidget(label);
    label->setText("short");
    window.show();
    QCoreApplication::processEvents();
    const QSize small = window.minimumSizeHint();
    EXPECT_EQ(label->toolTip(), "");
    label->setText(whole);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.minimumSizeHint().height(), small.height());
    EXPECT_LT(window.minimumSizeHint().width(), 100);
    EXPECT_LT(label->sizeHint().width(), 500);
    window.resize(200, 60);
    label->grab();
    EXPECT_EQ(label->text(), whole);
    EXPECT_EQ(label->toolTip(), whole);
    EXPECT_EQ(Read(label), "Use: " + whole);
    label->setText("short");
    label->grab();
    EXPECT_EQ(label->toolTip(), "");
}

} // namespace
} // namespace quorrel::test
