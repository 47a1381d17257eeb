#include "crosskeys/CrossPinning.h"

#include "engine/SystemDefinition.h"
#include "pinning/PinSizes.h"
#include "pinning/PinText.h"
#include "platform/Text.h"
#include "store/Conflict.h"

#include <stdexcept>

namespace quorrel {

namespace {

/// What a broken file holds must not come to be a pin.
void RequireCuts(const OpenSystem& system) {
    if (!IsDigits(system.MasterKeyCuts, system.PinCount) ||
        (system.SystemIsIC && !IsDigits(system.SpecialCuts, system.PinCount)))
        throw std::runtime_error("The cuts of the master key or of the control key cannot be read, "
                                 "so the cylinder cannot be worked out. The key file may be "
                                 "damaged.");
}

Cylinder CylinderFor(const OpenSystem& system, const CrossKeying& keying) {
    Cylinder cylinder{system.MasterKeyCuts, {}, system.SystemIsIC};
    for (std::size_t place = 0; place < keying.Chambers().size(); ++place) {
        const std::vector<int>& cuts = keying.Chambers()[place];
        cylinder.stacks.push_back(system.SystemIsIC
                                      ? CoreStackOf(cuts, system.SpecialCuts.at(place) - '0')
                                      : StackOf(cuts));
    }
    return cylinder;
}

/// The chambers with two master pins or more.
std::vector<int> StackedChambers(const Cylinder& cylinder) {
    std::vector<int> chambers;
    for (std::size_t place = 0; place < cylinder.stacks.size(); ++place)
        if (cylinder.stacks[place].wafers.size() > 1)
            chambers.push_back(static_cast<int>(place) + 1);
    return chambers;
}

QStringList NotesOn(const CrossPinning& pinning) {
    QStringList notes;
    if (const auto overfull = pinning.keying.Rows().overfull; !overfull.empty())
        notes += QStringLiteral("%1: a sixth master pin, which the rows have no place for. The "
                                "drawing shows it.")
                     .arg(NameChambers(overfull));
    if (const auto stacked = StackedChambers(pinning.cylinder);
        pinning.cylinder.core && !stacked.empty())
        notes += QStringLiteral("%1: load the wafer rows, not one pin.").arg(NameChambers(stacked));
    return notes + DescribeFlaws(pinning.cylinder);
}

} // namespace

QString RemarkOn(const Session& session, int element, const MeantKey& meant) {
    if (element >= PinnedElements(session))
        return QStringLiteral("not pinned (%1 pins)").arg(session.System.PinCount);
    if (meant.matches == 0)
        return QStringLiteral("no key has this Key ID");
    if (meant.cuts.empty())
        return QStringLiteral("this key cannot be read");
    if (meant.matches > 1)
        return QStringLiteral("means %1 keys; %2 is pinned")
            .arg(meant.matches)
            .arg(Named(meant.keyID));
    return {};
}

CrossPinning CalculateCrossPinning(Session& session, const CrossKeyIDs& keyIDs) {
    RequireSystem(session);
    RequireCuts(session.System);
    CrossPinning pinning;
    pinning.cuts[0] = session.System.MasterKeyCuts;
    for (std::size_t box = 0; box < keyIDs.size(); ++box) {
        if (RightTrimmed(keyIDs[box]).isEmpty())
            continue;
        const MeantKey meant = FindMeantKey(session, keyIDs[box]);
        pinning.cuts[box + 1] = meant.cuts;
        pinning.remarks[box + 1] = RemarkOn(session, static_cast<int>(box) + 1, meant);
    }
    pinning.keying = CrossKeyingFor(session, pinning.cuts);
    pinning.cylinder = CylinderFor(session.System, pinning.keying);
    const PinSizes sizes = FindPinSizes(session, session.System.lockBrand).value_or(PinSizes());
    for (const PinStack& stack : pinning.cylinder.stacks)
        pinning.sizes.push_back({sizes.bottom.at(static_cast<std::size_t>(stack.bottom)).trimmed(),
                                 sizes.top.at(static_cast<std::size_t>(stack.Master())).trimmed()});
    pinning.notes = NotesOn(pinning);
    return pinning;
}

CorePanel CorePanelOf(const CrossPinning& pinning) {
    CorePanel panel;
    for (const PinStack& stack : pinning.cylinder.stacks) {
        panel.bottom += QString::number(stack.bottom);
        panel.top += QString::number(stack.Master());
        panel.control += PinFigure(stack.control.value_or(0));
        panel.driver += PinFigure(stack.driver.value_or(0));
    }
    for (const ChamberSizes& sizes : pinning.sizes) {
        panel.topSizes += sizes.master;
        panel.bottomSizes += sizes.bottom;
    }
    return panel;
}

} // namespace quorrel
