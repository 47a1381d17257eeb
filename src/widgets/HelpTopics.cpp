#include "widgets/HelpTopics.h"

#include <QFile>
#include <QRegularExpression>

namespace quorrel {

std::vector<HelpTopic> ReadHelpTopics(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    static const QRegularExpression start(QStringLiteral("^<!-- context (\\d+) -->$"));
    std::vector<HelpTopic> topics;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (const auto match = start.match(line); match.hasMatch()) {
            topics.push_back({match.captured(1).toInt(), {}, {}});
            continue;
        }
        if (topics.empty())
            continue;
        HelpTopic& topic = topics.back();
        if (topic.title.isEmpty() && line.startsWith(u'#'))
            topic.title = line.section(u' ', 1).trimmed();
        topic.text += line + u'\n';
    }
    return topics;
}

} // namespace quorrel
