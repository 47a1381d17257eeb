#pragma once

#include <stdexcept>

namespace quorrel {

/// A mistake of the program itself, not of its user, its files or its surroundings.
class ProgrammingError : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

} // namespace quorrel
