#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace quorrel::test {
namespace {

/// What the sources of a kind may include, as patterns of whole texts.
struct Rule {
    const char* name;
    QString files;    ///< relative to src, such as "store/Session.h"
    QString includes; ///< with angle brackets or quotation marks
    int atLeast;      ///< includes to be seen, so that a rule cannot come to match nothing
};

const QString kLanguage = "<[a-z_]+>";
/// Qt without a window: the headers of its Core module that are of use here.
const QString kCore =
    kLanguage +
    "|<Q(String|StringBuilder|StringList|DateTime|Date|Time|RandomGenerator|Dir|File|FileInfo|"
    "Locale|RegularExpression|Process|Settings|StandardPaths|RectF|SizeF|PointF|Set|Hash|Map|"
    "List|Char|AbstractTableModel|ByteArray|Thread|TextStream|TemporaryFile|TextBoundaryFinder|Url|"
    "Collator)>";

const Rule kRules[] = {
    {"engine", "engine/.*", kLanguage + "|\"engine/.*", 20},
    {"platform", "platform/(?!JetFile\\.cpp).*", kCore + "|<soci/.*|\"platform/.*", 20},
    {"jet", "platform/JetFile\\.cpp", kCore + "|<(glib|mdbtools)\\.h>|\"platform/.*", 5},
    {"store", "store/.*", kCore + "|\"(store|platform|engine)/.*", 20},
    // A room's logic begins with a capital; these are windows or drawn for them.
    {"logic",
     "(?!engine|platform|store|widgets|app)[a-z]+/"
     "(?!KeyCell|ListArea|PageGrid|Cylinder|ChartPage|Legend|LogoLabel|PersonFields|MainMenu|"
     "StatusLine|CrossKeyMark|BusyPicture|PhantomCounts|\\w+Panel|SheetPainter|Printers|PrintRun|"
     "Preview|PrintCommands|SystemPrints)[A-Z].*",
     kCore + "|\"(?!widgets/|app/|[a-z]+/frm|ui_).*", 30},
    {"form", "[a-z]+/frm.*", "<.*|\"(?!app/|[a-z]+/frm).*", 30},
    {"widgets", "widgets/.*", "<.*|\"(widgets|print|store|platform|engine)/.*", 10}};

/// The rooms from the lowest to the highest: a room includes itself and what stands before it.
const QStringList kRooms = {"engine", "platform",  "store",   "print",   "widgets", "access",
                            "start",  "pinning",   "systems", "doors",   "holders", "page",
                            "search", "crosskeys", "maps",    "reports", "app"};

bool Fits(const QString& text, const QString& pattern) {
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text).hasMatch();
}

/// Calls `visit(name, target)` for each include of each source: "store/Session.h", "<QString>".
template <class Visit>
void ForIncludes(Visit&& visit) {
    const QDir root(QStringLiteral(QUORREL_SOURCES "/src"));
    const QRegularExpression include(R"(^\s*#\s*include\s*([<"][^>"]+[>"]))",
                                     QRegularExpression::MultilineOption);
    QDirIterator files(root.path(), {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        auto matches = include.globalMatch(QString::fromUtf8(file.readAll()));
        while (matches.hasNext())
            visit(root.relativeFilePath(file.fileName()), matches.next().captured(1));
    }
}

TEST(Architecture, IncludesPointDownOnly) {
    for (const Rule& rule : kRules) {
        int seen = 0;
        ForIncludes([&](const QString& name, const QString& target) {
            if (!Fits(name, rule.files))
                return;
            ++seen;
            const QString own = u'"' + name.left(name.lastIndexOf(u'.')) + ".h\"";
            EXPECT_TRUE(target == own || Fits(target, rule.includes))
                << rule.name << ": " << name.toStdString() << " includes " << target.toStdString();
        });
        EXPECT_GE(seen, rule.atLeast) << rule.name;
    }
}

TEST(Architecture, RoomsIncludeOnlyWhatStandsBeforeThem) {
    int seen = 0;
    ForIncludes([&](const QString& name, const QString& target) {
        if (!target.startsWith(u'"') || !target.contains(u'/'))
            return;
        ++seen;
        const auto from = kRooms.indexOf(name.section(u'/', 0, 0));
        const auto to = kRooms.indexOf(target.mid(1).section(u'/', 0, 0));
        EXPECT_TRUE(to >= 0 && to <= from)
            << name.toStdString() << " includes " << target.toStdString();
    });
    EXPECT_GE(seen, 300);
}

} // namespace
} // namespace quorrel::test
