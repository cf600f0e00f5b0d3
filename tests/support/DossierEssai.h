#pragma once
// Chaque test part d'un dossier de données neuf ($MAROVAL_DONNEES dans un dossier
// temporaire), de réglages isolés, d'un journal des boîtes vide et de l'horloge réelle.
// La fin du programme est observée : elle ne quitte jamais le processus de test.

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace support {

class DossierEssai {
public:
    DossierEssai();
    ~DossierEssai();
    DossierEssai(const DossierEssai&) = delete;
    DossierEssai& operator=(const DossierEssai&) = delete;

    bool Valide() const { return dossier.isValid(); }
    // Le dossier de données ($MAROVAL_DONNEES).
    QString Chemin() const;
    QString Fichier(const QString& nom) const;

private:
    QTemporaryDir dossier;
    QByteArray ancienDossier;
    bool avaitAncienDossier = false;
};

// Remet à zéro les services d'écran : journal et réponses des boîtes et des dialogues,
// horloge, fin observée.
void RemettreServicesAZero();

} // namespace support
