#pragma once

#include <QElapsedTimer>
#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>

#include <stdexcept>

namespace quorrel::test {

/// A second workstation at work on a program folder, as a process of its own.
class Workstation {
public:
    Workstation(const QString& folder, const QStringList& command) {
        m_process.start(QStringLiteral(QUORREL_WORKSTATION), QStringList{folder} + command);
        if (!m_process.waitForStarted())
            throw std::runtime_error("The second workstation does not start.");
    }

    ~Workstation() { Kill(); }

    /// Waits until it has printed a text.
    void WaitFor(const QByteArray& text) {
        QElapsedTimer timer;
        timer.start();
        while (!m_output.contains(text) && timer.elapsed() < 60000 && IsRunning())
            m_output += ReadSoon();
        if (!m_output.contains(text))
            throw std::runtime_error("Not printed: " + text.toStdString() + Errors().toStdString());
    }

    /// Waits for its end and gives its exit code.
    int Finish() {
        if (IsRunning() && !m_process.waitForFinished(120000))
            throw std::runtime_error("The second workstation does not end.");
        return m_process.exitCode();
    }

    bool IsRunning() {
        m_process.waitForFinished(0);
        return m_process.state() != QProcess::NotRunning;
    }

    void Kill() {
        if (!IsRunning())
            return;
        m_process.kill();
        m_process.waitForFinished();
    }

    QString Output() {
        m_output += m_process.readAllStandardOutput();
        return QString::fromUtf8(m_output);
    }

    QString Errors() { return QString::fromUtf8(m_process.readAllStandardError()); }

private:
    QByteArray ReadSoon() {
        m_process.waitForReadyRead(50);
        return m_process.readAllStandardOutput();
    }

    QProcess m_process;
    QByteArray m_output;
};

} // namespace quorrel::test
