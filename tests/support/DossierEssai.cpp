#include "support/DossierEssai.h"

#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/EcranModal.h"
#include "ui/Fin.h"
#include "ui/Horloge.h"

#include <QDir>
#include <QSettings>

namespace support {

void RemettreServicesAZero() {
    ui::ViderJournalBoites();
    ui::OublierReponsesBoite();
    ui::ViderJournalDialogues();
    ui::OublierReponsesDialogues();
    ui::FixerModeEssai(true);
    ui::FixerDelaiEssai(20000);
    ui::FixerHorloge(QDateTime());
    ui::ObserverFin(true);
}

DossierEssai::DossierEssai() {
    avaitAncienDossier = qEnvironmentVariableIsSet("MAROVAL_DONNEES");
    ancienDossier = qgetenv("MAROVAL_DONNEES");
    const QString donnees = dossier.filePath(QStringLiteral("donnees"));
    QDir().mkpath(donnees);
    qputenv("MAROVAL_DONNEES", QFile::encodeName(donnees));
    // Les réglages de l'utilisateur ne sont jamais touchés par un test.
    const QString reglages = dossier.filePath(QStringLiteral("reglages"));
    QDir().mkpath(reglages);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, reglages);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, reglages);
    RemettreServicesAZero();
}

DossierEssai::~DossierEssai() {
    if (avaitAncienDossier)
        qputenv("MAROVAL_DONNEES", ancienDossier);
    else
        qunsetenv("MAROVAL_DONNEES");
    RemettreServicesAZero();
}

QString DossierEssai::Chemin() const {
    return dossier.filePath(QStringLiteral("donnees"));
}

QString DossierEssai::Fichier(const QString& nom) const {
    return QDir(Chemin()).filePath(nom);
}

} // namespace support
