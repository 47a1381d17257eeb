#include "store/DatabaseFiles.h"

#include "platform/Recordset.h"
#include "store/ProgramTables.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"

#include <QDir>
#include <QFile>

#include <stdexcept>

namespace quorrel {

namespace {

QString ReadText(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw std::runtime_error("Cannot read " + path.toStdString());
    return QString::fromUtf8(file.readAll());
}

std::unique_ptr<Database> MakeFile(const QString& schemaFolder, const QString& folder,
                                   const char* file, const char* schema, const FileKind& kind) {
    const QString path = QDir(folder).filePath(QLatin1String(file));
    QFile::remove(path);
    return Database::Create(path, kind,
                            ReadText(QDir(schemaFolder).filePath(QLatin1String(schema))));
}

void AddDefaultAccount(Database& database) {
    ProgramUsersRow account;
    account.ProgramUserID = 1;
    account.UserName = QStringLiteral("Administrator");
    account.Password = Scrambled(QStringLiteral("tamarisk"));
    account.CreateSystem = account.ReadPrintPinning = account.IssueKeys = true;
    account.AddEditProgramUsers = account.AddEditKeyUsers = true;
    account.AlterKeyInformation = account.RunReports = true;
    Recordset<ProgramUsersRow>::Add(database, account);
}

/// Steps of 0.015 inch, the commonest in pin kits: bottom pins from .150 up, master pins n x .015.
void AddGenericBrand(Database& database) {
    ManufacturerRow brand;
    brand.Name = QStringLiteral("Generic .015 inch steps");
    const auto size = [](int thousandths) {
        return QStringLiteral(".%1").arg(thousandths, 3, 10, QLatin1Char('0'));
    };
    const auto fields = FieldsOf(brand);
    for (std::size_t cut = 0; cut < 10; ++cut) {
        const int step = static_cast<int>(cut) * 15;
        *std::get<QString*>(fields[1 + cut]) = size(150 + step);
        *std::get<QString*>(fields[11 + cut]) = cut == 0 ? QStringLiteral(" ") : size(step);
    }
    Recordset<ManufacturerRow>::Add(database, brand);
}

} // namespace

void MakeEmptyFiles(const QString& schemaFolder, const QString& folder) {
    QDir().mkpath(folder);
    MakeFile(schemaFolder, folder, kSysinfoFile, "Sysinfo.sql", kSysinfoKind);
    MakeFile(schemaFolder, folder, kMapFile, "MapSystem.sql", kMapKind);
    const auto keySystem =
        MakeFile(schemaFolder, folder, kKeySystemFile, "KeySystem.sql", kKeySystemKind);
    Transaction transaction(*keySystem);
    AddDefaultAccount(*keySystem);
    AddGenericBrand(*keySystem);
    transaction.Commit();
}

} // namespace quorrel
