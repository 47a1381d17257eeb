#pragma once

#include <QString>

#include <stdexcept>

namespace quorrel {

/// A failure of a database file, with a message in plain words that names the file.
class DatabaseError : public std::runtime_error {
public:
    enum class Kind { Missing, NotOurs, TooNew, Damaged, ReadOnly, Busy, Full, Other };

    DatabaseError(Kind kind, const QString& path, const QString& detail = {});

    Kind kind() const { return m_kind; }

private:
    Kind m_kind;
};

} // namespace quorrel
