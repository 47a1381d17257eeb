#include "access/LogoLabel.h"

#include "access/CompanyInfo.h"
#include "platform/Files.h"

namespace quorrel {

void LogoLabel::ShowLogo(const QString& path) {
    QPixmap logo;
    if (IsLogo(path))
        logo.load(FindIgnoringCase(path));
    if (logo.width() > maximumWidth() || logo.height() > maximumHeight()) {
        const double ratio = devicePixelRatioF();
        logo = logo.scaled(maximumSize() * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        logo.setDevicePixelRatio(ratio);
    }
    setPixmap(logo);
    setVisible(!logo.isNull() || minimumHeight() > 0);
}

} // namespace quorrel
