#include "support/Captures.h"

#include <QDir>

namespace support {

QString DossierCaptures() {
    const QString dossier = qEnvironmentVariableIsSet("MAROVAL_CAPTURES")
                                ? qEnvironmentVariable("MAROVAL_CAPTURES")
                                : QDir::temp().filePath("maroval-captures");
    QDir().mkpath(dossier);
    return dossier;
}

bool ImageDessinee(const QImage& image) {
    if (image.isNull()) return false;
    const QRgb premier = image.pixel(0, 0);
    for (int y = 0; y < image.height(); y += 3)
        for (int x = 0; x < image.width(); x += 3)
            if (image.pixel(x, y) != premier) return true;
    return false;
}

} // namespace support
