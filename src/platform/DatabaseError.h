#pragma once

#include <QString>

#include <stdexcept>

namespace quorrel {

/// A failure of a database file, with a message in plain words that names the file.
class DatabaseError : public std::runtime_error {
public:
    enum class Kind {
        Missing,
        NotOurs,
        TooNew,
        Damaged,
        ReadOnly,    ///< the right is missing
        Moved,       ///< while it was open, the file was moved, deleted or replaced
        Busy,        ///< another workstation holds it
        Full,        ///< the disk is
        Unreachable, ///< its disk or network does not answer
        Other
    };

    /// What was under way when it failed. What is written is undone as a whole.
    enum class Attempt { Reading, Writing };

    DatabaseError(Kind kind, const QString& path, const QString& detail = {},
                  Attempt attempt = Attempt::Reading);

    Kind kind() const { return m_kind; }

private:
    Kind m_kind;
};

} // namespace quorrel
