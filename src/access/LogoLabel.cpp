#include "access/LogoLabel.h"

#include "access/CompanyInfo.h"
#include "platform/Files.h"
#include "print/SheetPainter.h"

namespace quorrel {

bool LogoLabel::ShowLogo(const QString& path) {
    QPixmap logo;
    const bool there = IsLogo(path);
    if (there)
        logo.load(FindIgnoringCase(path));
    const bool shown = !there || !logo.isNull();
    if (logo.width() > maximumWidth() || logo.height() > maximumHeight()) {
        const double ratio = devicePixelRatioF();
        logo = logo.scaled(maximumSize() * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        logo.setDevicePixelRatio(ratio);
    }
    setPixmap(logo);
    setVisible(!logo.isNull() || minimumHeight() > 0);
    return shown;
}

Picture LogoPicture(const QString& path) {
    return IsLogo(path) ? PictureFrom(FindIgnoringCase(path)) : Picture();
}

} // namespace quorrel
