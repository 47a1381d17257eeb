#include "widgets/Manners.h"

#include <QAbstractSpinBox>
#include <QAccessibleWidget>
#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QSlider>
#include <QTextDocumentFragment>
#include <QToolTip>

#include <utility>

namespace quorrel {

namespace {

/// Characters of a text that a tip shows.
constexpr int kTipLength = 2000;

class Manners : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Wheel)
            return RefusesWheel(watched, event);
        if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease)
            return IsHeldEnter(*static_cast<QKeyEvent*>(event));
        if (event->type() == QEvent::MouseButtonPress ||
            event->type() == QEvent::MouseButtonDblClick)
            return IsForWindowBefore(watched, event->type());
        if (event->type() == QEvent::ToolTip)
            return ShowTip(watched, *static_cast<QHelpEvent*>(event));
        return false;
    }

private:
    /// Whether it is the Enter key pressed on. On a busy machine a repeated press may come without
    /// that mark; it then comes at the very moment of the release that goes with it.
    bool IsHeldEnter(const QKeyEvent& key) {
        if (!IsEnter(key))
            return false;
        if (key.type() == QEvent::KeyRelease) {
            m_enterReleased = key.timestamp();
            return false;
        }
        return key.isAutoRepeat() || (key.timestamp() != 0 && key.timestamp() == m_enterReleased);
    }

    /// Whether it is the second press of a double click whose first one has brought this window up:
    /// it was meant for what lay there before.
    bool IsForWindowBefore(QObject* watched, QEvent::Type type) {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (!widget)
            return false;
        const QWidget* before = std::exchange(m_pressed, widget->window());
        return type == QEvent::MouseButtonDblClick && before != widget->window();
    }

    /// Rolling on over a window must not change what stands in its boxes.
    static bool RefusesWheel(QObject* watched, QEvent* event) {
        const bool changes = qobject_cast<QComboBox*>(watched) ||
                             qobject_cast<QAbstractSpinBox*>(watched) ||
                             qobject_cast<QSlider*>(watched);
        if (!changes || static_cast<QWidget*>(watched)->hasFocus())
            return false;
        event->ignore(); // What lies under it rolls.
        return true;
    }

    static bool ShowTip(QObject* watched, const QHelpEvent& help) {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (!widget || widget->toolTip().isEmpty())
            return false;
        QToolTip::showText(help.globalPos(), PlainTip(widget->toolTip()), widget);
        return true;
    }

    quint64 m_enterReleased = 0; ///< milliseconds of the window system
    /// Window of the last press, only ever compared.
    const QWidget* m_pressed = nullptr;
};

/// A label as a screen reader gets it.
class LabelForReaders : public QAccessibleWidget {
public:
    explicit LabelForReaders(QLabel* label) : QAccessibleWidget(label, QAccessible::StaticText) {}

    QAccessible::Role role() const override {
        return Label()->pixmap(Qt::ReturnByValue).isNull() ? QAccessible::StaticText
                                                           : QAccessible::Graphic;
    }

    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Name)
            return QAccessibleWidget::text(kind);
        const QString shown = Shown();
        const QString caption = Caption();
        if (caption.isEmpty() || shown.startsWith(caption + u':'))
            return shown;
        return shown.isEmpty() ? caption : caption + QStringLiteral(": ") + shown;
    }

    QVector<QPair<QAccessibleInterface*, QAccessible::Relation>>
    relations(QAccessible::Relation match) const override {
        auto found = QAccessibleWidget::relations(match);
        if (QWidget* buddy = Label()->buddy(); buddy && (match & QAccessible::Labelled))
            found.append({QAccessible::queryAccessibleInterface(buddy), QAccessible::Labelled});
        return found;
    }

private:
    QLabel* Label() const { return static_cast<QLabel*>(object()); }

    QString Shown() const {
        QString text = Label()->text();
        const Qt::TextFormat format = Label()->textFormat();
        if (format == Qt::RichText || (format == Qt::AutoText && Qt::mightBeRichText(text)))
            text = QTextDocumentFragment::fromHtml(text).toPlainText();
        return Label()->buddy() ? WithoutMnemonic(text) : text;
    }

    QString Caption() const {
        if (const QString name = Label()->accessibleName(); !name.isEmpty())
            return name;
        for (const auto& [caption, relation] : QAccessibleWidget::relations(QAccessible::Label))
            return caption->text(QAccessible::Name);
        return {};
    }

    static QString WithoutMnemonic(QString text) {
        for (qsizetype at = 0; (at = text.indexOf(u'&', at)) >= 0; ++at)
            text.remove(at, 1);
        return text;
    }
};

QAccessibleInterface* ReadLabel(const QString&, QObject* object) {
    auto* label = qobject_cast<QLabel*>(object);
    // A tool tip is a label to the toolkit alone.
    return label && !label->inherits("QTipLabel") ? new LabelForReaders(label) : nullptr;
}

} // namespace

void InstallManners() {
    static const bool once = [] {
        qApp->installEventFilter(new Manners(qApp));
        QAccessible::installFactory(ReadLabel);
        return true;
    }();
    Q_UNUSED(once)
}

bool IsEnter(const QKeyEvent& press) {
    return press.key() == Qt::Key_Return || press.key() == Qt::Key_Enter;
}

QString PlainTip(const QString& text) {
    QString shown = text.left(kTipLength);
    if (text.size() > kTipLength)
        shown += u'\u2026';
    return QStringLiteral("<div style='white-space:pre-wrap'>%1</div>").arg(shown.toHtmlEscaped());
}

} // namespace quorrel
