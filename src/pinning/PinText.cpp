#include "pinning/PinText.h"

#include <functional>

namespace quorrel {

namespace {

QString Joined(const QStringList& words) {
    if (words.size() < 2)
        return words.join(QString());
    return words.mid(0, words.size() - 1).join(QStringLiteral(", ")) + QStringLiteral(" and ") +
           words.last();
}

/// The names of those chambers that `fits` picks.
QString Chambers(const Cylinder& cylinder, const std::function<bool(const PinStack&)>& fits) {
    std::vector<int> chambers;
    for (std::size_t chamber = 0; chamber < cylinder.stacks.size(); ++chamber)
        if (fits(cylinder.stacks[chamber]))
            chambers.push_back(static_cast<int>(chamber) + 1);
    return NameChambers(chambers);
}

QString DescribeWafers(const PinStack& stack) {
    if (stack.wafers.empty())
        return QStringLiteral("no master pin");
    QStringList steps;
    for (const int wafer : stack.wafers)
        steps += QString::number(wafer);
    return QLatin1String(steps.size() > 1 ? "master pins " : "master pin ") + Joined(steps);
}

} // namespace

QString NameChambers(const std::vector<int>& chambers) {
    QStringList numbers;
    for (const int chamber : chambers)
        numbers += QString::number(chamber);
    if (numbers.isEmpty())
        return {};
    return QLatin1String(numbers.size() > 1 ? "Chambers " : "Chamber ") + Joined(numbers);
}

QString PinFigure(int steps) {
    return QString(QLatin1Char(PinCharacter(steps)));
}

QString FirstEnd(const Cylinder& cylinder) {
    return cylinder.core ? QStringLiteral("tip") : QStringLiteral("bow");
}

QStringList DescribeCylinder(const Cylinder& cylinder) {
    QStringList lines = {
        QStringLiteral("Cylinder of %1 chambers with the key %2 in it, counted from its %3")
            .arg(cylinder.stacks.size())
            .arg(QString::fromStdString(cylinder.key), FirstEnd(cylinder))};
    for (std::size_t chamber = 0; chamber < cylinder.stacks.size(); ++chamber) {
        const PinStack& pins = cylinder.stacks[chamber];
        QString line = QStringLiteral("Chamber %1: cut %2, bottom pin %3, %4")
                           .arg(chamber + 1)
                           .arg(QLatin1Char(cylinder.key.at(chamber)))
                           .arg(pins.bottom)
                           .arg(DescribeWafers(pins));
        if (pins.control)
            line += QStringLiteral(", control pin %1, driver pin %2")
                        .arg(*pins.control)
                        .arg(*pins.driver);
        lines += line;
    }
    return lines;
}

QStringList DescribeFlaws(const Cylinder& cylinder) {
    const QString thin = Chambers(cylinder, &PinStack::HasThinWafer);
    if (thin.isEmpty())
        return {};
    return {QStringLiteral("%1: a master pin of one step. So thin a pin may tilt and jam the "
                           "cylinder.")
                .arg(thin)};
}

QStringList DescribeNotes(const Cylinder& cylinder) {
    const QString single =
        Chambers(cylinder, [](const PinStack& stack) { return stack.wafers.empty(); });
    if (single.isEmpty())
        return {};
    return {QStringLiteral("%1: no master pin, one cut alone. The cylinder opens to fewer keys of "
                           "the system.")
                .arg(single)};
}

} // namespace quorrel
