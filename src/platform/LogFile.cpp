#include "platform/LogFile.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

namespace quorrel {

namespace {

constexpr int kLineLength = 500;

} // namespace

void LogFile::Note(const char* what, const std::exception& error) const noexcept {
    try {
        Add(QString::fromUtf8(what) + QStringLiteral(": ") + QString::fromUtf8(error.what()));
    } catch (...) {
        // It was to be passed over, and so it is.
    }
}

void LogFile::Add(const QString& text) const {
    const QByteArray line = (QDateTime::currentDateTime().toString(Qt::ISODate) + u' ' +
                             text.simplified().left(kLineLength) + u'\n')
                                .toUtf8();
    if (QFileInfo(m_path).size() + line.size() > m_mostBytes) {
        const QString former = m_path + QStringLiteral(".old");
        QFile::remove(former);
        QFile::rename(m_path, former);
    }
    QFile file(m_path);
    const bool fresh = !file.exists();
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        return;
    if (fresh)
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    file.write(line);
}

} // namespace quorrel
