#pragma once

#include <sqlite3.h>

#include <cstdlib>
#include <string>

namespace quorrel::test {

/// Ends the process within the database engine, as a power cut does: at the so-manieth moment at
/// which the engine opens a file, or deletes one, after this was armed. A transaction is stored
/// by files that are made and deleted, so these moments lie between all of its parts.
class DyingEngine {
public:
    /// Takes the place of the engine's way to the disk. Before any file is opened.
    static void Install() {
        s_usual = sqlite3_vfs_find(nullptr);
        s_dying = *s_usual;
        s_dying.zName = "dying";
        s_dying.xOpen = [](sqlite3_vfs*, const char* name, sqlite3_file* file, int flags,
                           int* given) {
            CountDown(s_opens);
            return s_usual->xOpen(s_usual, name, file, flags, given);
        };
        s_dying.xDelete = [](sqlite3_vfs*, const char* name, int sync) {
            CountDown(s_deletes);
            return s_usual->xDelete(s_usual, name, sync);
        };
        sqlite3_vfs_register(&s_dying, 1);
    }

    /// `moment` is "open" or "delete". Dies before that is done for the time `count`, from 1.
    static void Arm(const std::string& moment, int count) {
        (moment == "open" ? s_opens : s_deletes) = count;
    }

private:
    static void CountDown(int& left) {
        if (left > 0 && --left == 0)
            std::_Exit(9);
    }

    inline static sqlite3_vfs* s_usual = nullptr;
    inline static sqlite3_vfs s_dying{};
    inline static int s_opens = 0; ///< until the end; 0 for never
    inline static int s_deletes = 0;
};

} // namespace quorrel::test
