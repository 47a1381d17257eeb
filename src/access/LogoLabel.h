#pragma once

#include "print/PrintedPages.h"

#include <QLabel>

namespace quorrel {

/// Shows the company's logo as large as the label may become, in all the pixels that the screen
/// has. Without a logo it gives up its room, unless the form has set it a least height.
class LogoLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;

    /// Loads the logo of a path; none when there is no picture at it. False when a file is there
    /// that cannot be shown: its format is not known on this workstation, or it is broken.
    bool ShowLogo(const QString& path);
};

/// The company's logo for what is printed; empty when there is none at the path.
Picture LogoPicture(const QString& path);

} // namespace quorrel
