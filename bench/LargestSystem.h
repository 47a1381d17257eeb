#pragma once

#include "QuietBoxes.h"
#include "store/Session.h"
#include "systems/NewSystem.h"

#include <QTemporaryDir>

namespace quorrel::bench {

inline constexpr int kLargestPages = 256;

/// 7 pins and five cuts at each: 256 pages of 104 keys.
SystemDefinition LargestDefinition();
NewSystem LargestSystem();

/// A program folder of its own with the delivered files freshly laid out.
class FreshFolder {
public:
    FreshFolder();

    QString Path() const { return m_folder.path(); }
    QString PathOf(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

private:
    QTemporaryDir m_folder;
};

/// A session on a program folder, started up, with all rights but not logged on.
class QuietSession {
public:
    explicit QuietSession(const QString& folder);

    /// Makes the first system of the file the open one. Its cells are in the file, not in memory.
    void OpenFirstSystem();

private:
    QuietBoxes m_boxes;

public:
    Session session;
};

/// A folder whose file holds the largest system. Made once; what uses it does not change it.
const FreshFolder& LargestFolder();

} // namespace quorrel::bench
