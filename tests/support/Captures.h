#pragma once
// Captures des écrans pour les regarder : $MAROVAL_CAPTURES, sinon un dossier temporaire.

#include <QImage>
#include <QString>

namespace support {

QString DossierCaptures();

// Une capture faite d'une seule couleur serait une fenêtre vide.
bool ImageDessinee(const QImage& image);

} // namespace support
