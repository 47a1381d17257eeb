#include "platform/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorrel::test {
namespace {

TEST(Files, LookUpsIgnoreCase) {
    const QTemporaryDir folder;
    const QDir root(folder.path());
    ASSERT_TRUE(root.mkpath("Maps/Site"));
    QFile file(root.filePath("Maps/Site/MapSystem.VLX"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QString stored = file.fileName();

    EXPECT_EQ(FindIgnoringCase(root.filePath("maps/SITE/mapsystem.vlx")), stored);
    EXPECT_EQ(FindIgnoringCase(stored), stored);
    EXPECT_EQ(FindIgnoringCase(root.filePath("maps/other/mapsystem.vlx")), "");
    EXPECT_EQ(FindIgnoringCase(""), "");
    EXPECT_EQ(FindIgnoringCase("no such file"), "");

    EXPECT_EQ(PathIn(root.filePath("maps/site"), "mapsystem.vlx"),
              QDir::toNativeSeparators(stored));
    EXPECT_EQ(PathIn(root.filePath("maps"), "None.vlx"),
              QDir::toNativeSeparators(root.filePath("maps/None.vlx")));
    EXPECT_EQ(FileNameAt(root.filePath("MAPS/site/MAPSYSTEM.vlx")), "MapSystem.VLX");
    EXPECT_EQ(FileNameAt(root.filePath("Maps")), "");
    EXPECT_EQ(FileNameAt(root.filePath("Maps/none")), "");
}

TEST(Files, APathInItsOwnCaseComesFirst) {
    const QTemporaryDir folder;
    for (const char* name : {"A.txt", "a.txt"})
        ASSERT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
    EXPECT_EQ(FileNameAt(folder.filePath("a.txt")), "a.txt");
    EXPECT_EQ(FileNameAt(folder.filePath("A.txt")), "A.txt");
}

} // namespace
} // namespace quorrel::test
