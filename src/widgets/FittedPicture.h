#pragma once

#include <QPixmap>

namespace quorrel {

/// A picture made small enough for its room, in all the pixels that a screen of this ratio has.
inline QPixmap FittedPicture(QPixmap picture, const QSize& room, double ratio) {
    if (picture.width() <= room.width() && picture.height() <= room.height())
        return picture;
    picture = picture.scaled(room * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(ratio);
    return picture;
}

} // namespace quorrel
