#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>

namespace quorrel::test {
namespace {

namespace fs = std::filesystem;

/// What the sources of a kind may include.
struct Rule {
    const char* name;
    std::regex files;    ///< relative to src, such as "store/Session.h"
    std::regex includes; ///< in angle brackets or between quotation marks
    int atLeast;         ///< includes to be seen, so that a rule cannot come to match nothing
};

const std::string kLanguage = "<[a-z_]+>|";
/// Qt without a window: its Core module's headers that are in use.
const std::string kQtCore =
    "<Q(String|StringList|DateTime|Date|Time|RandomGenerator|Dir|File|FileInfo|Locale|"
    "RegularExpression|Process|Settings|StandardPaths|RectF|SizeF|PointF|Set|Hash|Map|List|Char|"
    "ByteArray|Thread|TextStream|TemporaryFile|Url|Collator)>|";

const Rule kRules[] = {
    {"engine", std::regex("engine/.*"), std::regex(kLanguage + "\"engine/.*"), 20},
    {"platform", std::regex("platform/.*"),
     std::regex(kLanguage + kQtCore + "<(soci/.*|unistd\\.h)>|\"platform/.*"), 20},
    {"store", std::regex("store/.*"),
     std::regex(kLanguage + kQtCore + "\"(store|platform|engine)/.*"), 20},
    // A room's logic begins with a capital; the grid and its cells are windows.
    {"logic", std::regex("(?!engine|platform|store|widgets|app)[a-z]+/(?!KeyCell|PageGrid)[A-Z].*"),
     std::regex(kLanguage + kQtCore + "\"(?!widgets/|app/|[a-z]+/frm|ui_).*"), 30},
    {"form", std::regex("[a-z]+/frm.*"), std::regex("<.*|\"ui_frm.*|\"(?!app/|[a-z]+/frm).*"), 30},
    {"widgets", std::regex("widgets/.*"), std::regex("<.*|\"(widgets|store|platform|engine)/.*"),
     10}};

TEST(Architecture, IncludesPointDownOnly) {
    const fs::path root = fs::path(QUORREL_SOURCES) / "src";
    const std::regex include(R"(^\s*#\s*include\s*([<"][^>"]+[>"]).*)");
    for (const Rule& rule : kRules) {
        int seen = 0;
        for (const auto& entry : fs::recursive_directory_iterator(root)) {
            const std::string extension = entry.path().extension().string();
            const std::string name = fs::relative(entry.path(), root).generic_string();
            if ((extension != ".h" && extension != ".cpp") || !std::regex_match(name, rule.files))
                continue;
            const std::string own = '"' + name.substr(0, name.size() - extension.size()) + ".h\"";
            std::ifstream file(entry.path());
            std::smatch match;
            for (std::string line; std::getline(file, line);) {
                if (!std::regex_match(line, match, include))
                    continue;
                ++seen;
                EXPECT_TRUE(match[1] == own || std::regex_match(match[1].str(), rule.includes))
                    << rule.name << ": " << name << " includes " << match[1];
            }
        }
        EXPECT_GE(seen, rule.atLeast) << rule.name;
    }
}

} // namespace
} // namespace quorrel::test
