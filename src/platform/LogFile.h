#pragma once

#include <QString>

#include <exception>

namespace quorrel {

/// What went wrong and was passed over, for whoever looks for the reason later: a line each, with
/// its moment. The user's own account alone can read the file. It is bounded: when it is full, it
/// becomes the former one, in place of the one before. Texts of a user, cuts and passwords have no
/// place in it.
class LogFile {
public:
    static constexpr qint64 kMostBytes = 100'000;

    /// The former file has the same name with ".old" added.
    explicit LogFile(QString path, qint64 mostBytes = kMostBytes)
        : m_path(std::move(path)), m_mostBytes(mostBytes) {}

    /// Adds a line: what was under way, and how it failed. What cannot be written is lost, too.
    void Note(const char* what, const std::exception& error) const noexcept;

private:
    void Add(const QString& text) const;

    QString m_path;
    qint64 m_mostBytes;
};

} // namespace quorrel
