#pragma once

#include "Walker.h"

#include "store/Session.h"

#include <initializer_list>
#include <utility>

namespace quorrel::tour {

/// What the steps of the tour share.
struct Tour {
    using Steps = std::initializer_list<std::pair<const char*, void (*)(Tour&)>>;

    Walker& walker;
    Session& session;

    /// Takes steps in their order, each under its name.
    void Take(const Steps& steps) {
        for (const auto& [name, step] : steps)
            walker.Step(QLatin1String(name), [this, step = step] { step(*this); });
    }
};

/// Presses F1 in the window and checks that the help shows the topic of a context number.
void CheckHelp(Tour& tour, const char* window, int context, const QString& picture = {});

/// The splash, the welcome of a first run, the company and the logon.
void WalkStart(Tour& tour);

/// Defines the first key system and creates it.
void WalkFirstSystem(Tour& tour);

/// The page view of the first key system.
void WalkPages(Tour& tour);

/// Pinning charts of the first key system.
void WalkPinning(Tour& tour);

/// The lists beside the page, of the keys that were named on it, and the menus.
void WalkLists(Tour& tour);

/// The doors of the first key system and the keys that open them.
void WalkDoors(Tour& tour);

/// Steps of these ways that cross-key a door: in the door form on a door that has a key, and from
/// the main form in a system of interchangeable cores.
void CrossKeyDoor(Tour& tour);
void CrossKeyCore(Tour& tour);

/// The search for keys, doors and holders.
void WalkFind(Tour& tour);

/// The logs of key units, and the tidying of departments and hardware.
void WalkBooks(Tour& tour);

/// The printer, and a report.
void WalkReports(Tour& tour);

/// A second key system, with seven pins and angled cuts.
void WalkSecondSystem(Tour& tour);

/// The windows that the main form leads to, ending on the main form.
void WalkAside(Tour& tour);

/// A third key system, of interchangeable cores, and a pinning chart of it.
void WalkCore(Tour& tour);

/// Holders, and units in their hands.
void WalkHolders(Tour& tour);

/// The list of key systems and the way out.
void WalkListAndExit(Tour& tour);

} // namespace quorrel::tour
