#pragma once

#include <QString>

#include <vector>

namespace quorrel {

/// A topic of the help file.
struct HelpTopic {
    int context; ///< the number a form asks for it by
    QString title;
    QString text; ///< Markdown, title included
};

/// Reads a help file: Markdown text in which each topic begins with a line
/// "<!-- context NUMBER -->" and has its title in the next heading. Empty when there is no file.
std::vector<HelpTopic> ReadHelpTopics(const QString& path);

} // namespace quorrel
