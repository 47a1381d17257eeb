#include "holders/Receipt.h"

#include "platform/Text.h"
#include "print/ReportText.h"

#include <algorithm>

namespace quorrel {

namespace {

constexpr std::size_t kBlankEntry = 9; ///< of the history: blank receipts are always offered
constexpr std::size_t kEndEntry = 10;
constexpr int kNoReceipt = 99;
constexpr int kReceiptRule = 96;
constexpr int kReceiptRow = 30; ///< columns of a key and its unit
constexpr int kRowsOfPage = 18;
constexpr int kSignatureLine = 88;

bool IsOffered(ReceiptKind kind, const ReceiptSubject& subject) {
    switch (kind) {
    case ReceiptKind::AllKeysOfHolder:
        return !subject.firstName.isEmpty() || !subject.lastName.isEmpty();
    case ReceiptKind::SelectedUnit:
        return subject.keyLine && subject.unit;
    case ReceiptKind::UnitsOfKey:
        return subject.keyLine.has_value();
    case ReceiptKind::IssuedUnit:
        return subject.keyLine && !subject.LastIssuedUnit.isEmpty();
    case ReceiptKind::Blank:
        break;
    }
    return true;
}

QString Question(ReceiptKind kind, const ReceiptSubject& subject) {
    const QString key = subject.keyLine.value_or(QString()).trimmed();
    const QString begin = QStringLiteral("Would you like to print a receipt for ");
    switch (kind) {
    case ReceiptKind::AllKeysOfHolder:
        return begin + QStringLiteral("all keys assigned to ") + subject.firstName +
               QStringLiteral(", ") + subject.lastName + QStringLiteral(" ?");
    case ReceiptKind::SelectedUnit:
        return begin + key + QStringLiteral("  Unit ") + *subject.unit + QStringLiteral(" ?");
    case ReceiptKind::UnitsOfKey:
        return begin + key + QStringLiteral("'s all unassigned Units?");
    case ReceiptKind::IssuedUnit:
        return begin + key + QStringLiteral("  Unit ") + subject.LastIssuedUnit +
               QStringLiteral(" ?");
    case ReceiptKind::Blank:
        break;
    }
    return QStringLiteral("Would you like to print BLANK key receipts?");
}

Receipt ReceiptFor(ReceiptKind kind, const ReceiptSubject& subject) {
    Receipt receipt{kind, subject};
    if (kind != ReceiptKind::AllKeysOfHolder)
        for (QString* value :
             {&receipt.subject.firstName, &receipt.subject.lastName, &receipt.subject.userID,
              &receipt.subject.title, &receipt.subject.department})
            *value = QString(22, u' ');
    return receipt;
}

/// A text in lines no longer than the rules; a word goes to the next line where it can.
QString Wrapped(const QString& text) {
    QStringList lines;
    QString plain = text;
    plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    for (QString line : plain.split(u'\n')) {
        while (line.size() > kReceiptRule) {
            const qsizetype blank = line.lastIndexOf(u' ', kReceiptRule);
            const qsizetype end = blank > 0 ? blank : kReceiptRule;
            lines += line.left(end);
            line.remove(0, blank > 0 ? end + 1 : end);
        }
        lines += line;
    }
    return lines.join(u'\n');
}

/// A page in the making.
class ReceiptPage {
public:
    ReceiptPage(Printer& printer, const ReceiptHead& head, const Receipt& receipt)
        : m_printer(printer), m_head(head), m_receipt(receipt), m_subject(receipt.subject),
          m_policy(Wrapped(head.KeyPolicyText)) {}

    void Print(const QString& unit) {
        PrintHead();
        PrintHolder();
        PrintPolicy();
        m_printer.FontUnderline = true;
        m_printer.Print({Zone(2), Left(QStringLiteral("Key ID        Unit              "), 30),
                         NextZone(), "Initial Reciept of Key"});
        m_printer.Print();
        PrintRows(unit);
        PrintSignatures();
        m_printer.FontUnderline = false;
        m_printer.NewPage();
    }

private:
    void PrintHead() {
        m_printer.FontBold = true;
        m_printer.FontSize = 15;
        m_printer.Print();
        m_printer.Print({Zone(2), "       ", m_head.ProgramTitle});
        m_printer.Print();
        m_printer.Print({Zone(2), "       Key Receipt for ", m_head.SystemNameLabel});
        m_printer.Print({Zone(3), m_receipt.kind == ReceiptKind::Blank
                                      ? QStringLiteral("Date:___/___/_____")
                                      : ReportDate(m_head.date)});
        m_printer.FontSize = 10;
        m_printer.FontBold = false;
        m_printer.Print({Rule(kReceiptRule)});
        m_printer.Print();
        m_printer.PaintPicture(m_head.logo);
    }

    void PrintHolder() {
        m_printer.FontBold = true;
        m_printer.Print({"Name - ", Padded(m_subject.firstName, 24), " ",
                         Padded(m_subject.lastName, 24), NextZone(), "User ID - ",
                         m_subject.userID});
        m_printer.Print();
        m_printer.Print({"Title   - ", Padded(m_subject.title, 24), "  Department - ",
                         Padded(m_subject.department, 24)});
        m_printer.FontSize = 10;
        m_printer.FontBold = false;
        m_printer.Print({Rule(kReceiptRule)});
    }

    void PrintPolicy() {
        m_printer.Print({m_policy});
        m_printer.Print({Rule(kReceiptRule)});
        m_printer.Print({"       "});
        m_printer.Print({Zone(2), "    ___ Issuing Key(s)               ___Returning Key(s)"});
        m_printer.Print({"       "});
    }

    void PrintRow(const QString& text, int line) {
        m_printer.Print({Zone(2), text, NextZone(), Rule(line)});
        m_printer.Print();
    }

    void PrintRows(const QString& unit) {
        const QString key = Padded(m_subject.keyLine.value_or(QString()), 12);
        switch (m_receipt.kind) {
        case ReceiptKind::AllKeysOfHolder:
            for (const QString& line : m_subject.userList)
                PrintRow(Padded(line, kReceiptRow), 26);
            break;
        case ReceiptKind::UnitsOfKey:
            PrintRow(key + QStringLiteral("  ") + Padded(unit, 16), 28);
            break;
        case ReceiptKind::Blank:
            PrintRow(QString(kReceiptRow, u' '), 28);
            break;
        default:
            PrintRow(Padded(key + QStringLiteral("    ") + unit, kReceiptRow), 28);
        }
        PrintFillingRows();
    }

    /// The longer the policy, the fewer rows: the page keeps its length.
    void PrintFillingRows() {
        const auto policyLines = static_cast<int>(m_policy.count(u'\n'));
        const int last = kRowsOfPage - (policyLines - 1) / 2;
        for (auto row = static_cast<int>(m_subject.userList.size()); row <= last; ++row)
            PrintRow(Left(Rule(36), kReceiptRow), 28);
    }

    void PrintSignatures() {
        m_printer.Print();
        m_printer.Print({"Signed by: ", m_subject.firstName, " ", m_subject.lastName,
                         QString(kSignatureLine, u' ')});
        m_printer.Print();
        m_printer.Print();
        m_printer.Print({"Locksmith", QString(kSignatureLine, u' ')});
    }

    Printer& m_printer;
    const ReceiptHead& m_head;
    const Receipt& m_receipt;
    const ReceiptSubject& m_subject;
    const QString m_policy;
};

} // namespace

void RecordForReceipt(Session& session, ReceiptKind kind) {
    auto& history = session.ReceiptHistory;
    std::shift_right(history.begin(), history.end(), 1);
    history[0] = static_cast<int>(kind);
    history[kBlankEntry] = static_cast<int>(ReceiptKind::Blank);
}

std::optional<Receipt> ChooseReceipt(Session& session, const ReceiptSubject& subject) {
    session.ReceiptHistory[kBlankEntry] = static_cast<int>(ReceiptKind::Blank);
    session.ReceiptHistory[kEndEntry] = kNoReceipt;
    std::array<bool, 5> asked{};
    for (const int entry : session.ReceiptHistory) {
        if (entry < 0 || std::cmp_greater_equal(entry, asked.size()))
            break;
        const auto kind = static_cast<ReceiptKind>(entry);
        if (asked[static_cast<std::size_t>(entry)] || !IsOffered(kind, subject))
            continue;
        asked[static_cast<std::size_t>(entry)] = true;
        if (session.boxes.Confirms(Question(kind, subject), QStringLiteral("Print Key Receipt")))
            return ReceiptFor(kind, subject);
    }
    return std::nullopt;
}

void PrintReceipts(Printer& printer, const ReceiptHead& head, const Receipt& receipt) {
    ReceiptPage page(printer, head, receipt);
    if (receipt.kind == ReceiptKind::UnitsOfKey)
        for (const QString& unit : receipt.subject.units)
            page.Print(unit);
    else if (receipt.kind == ReceiptKind::SelectedUnit)
        page.Print(*receipt.subject.unit);
    else
        page.Print(receipt.subject.LastIssuedUnit);
    printer.EndDoc();
}

} // namespace quorrel
