#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QObject>

#include <stdexcept>

namespace quorrel::bench {

/// Tells when a change has reached the screen.
class PaintWatch : public QObject {
public:
    PaintWatch() { qApp->installEventFilter(this); }

    /// Runs an action and the events after it until they have painted.
    template <class Action>
    void UntilPainted(Action&& action) {
        m_painted = false;
        action();
        QElapsedTimer patience;
        patience.start();
        do {
            QCoreApplication::processEvents();
            if (patience.hasExpired(5000))
                throw std::runtime_error("Nothing was painted.");
        } while (!m_painted);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        m_painted = m_painted || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_painted = false;
};

} // namespace quorrel::bench
