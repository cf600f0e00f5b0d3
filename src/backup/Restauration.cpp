#include "backup/Restauration.h"

#include "backup/Historique.h"
#include "backup/ZipBiblio.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "store/Base.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Fin.h"
#include "ui/Horloge.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>

bool EstArchiveLigneCommande(const QString& ligne) {
    const QString l = ligne.toUpper();
    return l.endsWith(QStringLiteral(".SAV")) || l.endsWith(QStringLiteral(".SAV\""));
}

QString TexteEchecRestauration() {
    return QStringLiteral("La restauration a échoué. La base de données est introuvable dans "
                          "votre sauvegarde\nou votre fichier est endommagé.");
}

QString TexteRestaurationTerminee() {
    return QStringLiteral("La restauration est terminée.\n"
                          "Maroval va être arreté pour la prise en compte de la restauration.\n"
                          "\n"
                          "Vous pouvez relancer Maroval immédiatement");
}

QString ControlerBaseRestauree(const QString& chemin) {
    const DiagnosticBase d = ControlerBase(chemin, true);
    if (d.etat == EtatBase::Absente) return QStringLiteral("fichier absent");
    return d.raison;
}

QString NomBaseEndommagee(const QDateTime& moment) {
    return QStringLiteral("maroval.mdb.endommage-") +
           moment.toString(QStringLiteral("yyyyMMdd-HHmmss"));
}

namespace {

// Renomme sans jamais écraser : un fichier déjà gardé sous ce nom reste tel quel.
bool RenommerSansEcraser(const QString& de, const QString& vers) {
    if (QFileInfo::exists(vers)) return false;
    return std::rename(QFile::encodeName(de).constData(), QFile::encodeName(vers).constData()) == 0;
}

// La base abîmée et son journal passent à côté ; l'index partagé se recrée, on le retire.
bool GarderACote(const QString& cible) {
    const QString dossier = QFileInfo(cible).absolutePath();
    QString nom = NomBaseEndommagee(ui::Maintenant());
    for (int i = 2; QFileInfo::exists(QDir(dossier).filePath(nom)); ++i)
        nom = NomBaseEndommagee(ui::Maintenant()) + QStringLiteral("-%1").arg(i);
    const QString garde = QDir(dossier).filePath(nom);
    if (QFileInfo::exists(cible) && !RenommerSansEcraser(cible, garde)) return false;
    // Un journal vide n'a rien à garder ; plein, il porte peut-être les dernières écritures.
    if (QFileInfo(cible + QStringLiteral("-wal")).size() == 0)
        QFile::remove(cible + QStringLiteral("-wal"));
    if (QFileInfo::exists(cible + QStringLiteral("-wal")) &&
        !RenommerSansEcraser(cible + QStringLiteral("-wal"), garde + QStringLiteral("-wal")))
        return false;
    QFile::remove(cible + QStringLiteral("-shm"));
    return true;
}

} // namespace

bool RemplacerBaseDepuisArchive(const QString& fichier, BaseEnPlace enPlace) {
    const QString dossier = session().DossierDonnees;
    // Même dossier que la base : le renommage final reste un seul geste atomique.
    QTemporaryDir provisoire(QDir(dossier).filePath(QStringLiteral("restauration-XXXXXX")));
    if (!provisoire.isValid()) return false;
    if (!UnZip(fichier, QStringLiteral("maroval.mdb"), provisoire.path())) return false;
    const QString candidat = provisoire.filePath(QStringLiteral("maroval.mdb"));
    if (!ControlerBaseRestauree(candidat).isEmpty()) return false;
    const QString cible = QDir(dossier).filePath(QStringLiteral("maroval.mdb"));
    if (enPlace == BaseEnPlace::GardeeACote) {
        if (!GarderACote(cible)) return false;
    } else {
        // Un journal resté à côté de l'ancienne base serait rejoué sur la nouvelle.
        QFile::remove(cible + QStringLiteral("-wal"));
        QFile::remove(cible + QStringLiteral("-shm"));
    }
    if (std::rename(QFile::encodeName(candidat).constData(),
                    QFile::encodeName(cible).constData()) != 0)
        return false;
    SynchroniserDossier(dossier);
    return true;
}

bool RestaurerArchive(const QString& fichier, BaseEnPlace enPlace) {
    FermerBase();
    if (!RemplacerBaseDepuisArchive(fichier, enPlace)) {
        if (enPlace == BaseEnPlace::Remplacee) OuvrirBase(session().DossierDonnees);
        ui::Boite(TexteEchecRestauration(), QStringLiteral("Maroval"), ui::Icone::Critique);
        return false;
    }
    // Un marqueur d'arrêt n'a pas de sens pour la base restaurée ; le maroval.ini en place
    // reste en vigueur, celui de l'archive n'est pas appliqué.
    FichierProfil ini(CheminIni());
    if (!ini.Ecrire(QStringLiteral("Securite"), QStringLiteral("Erreur"), QStringLiteral("0"))) {
        ui::Boite(QStringLiteral("Erreur lors de l'écriture dans MAROVAL.INI"),
                  QStringLiteral("Maroval"), ui::Icone::Critique);
        ui::TerminerProgramme(1);
    }
    ui::Boite(TexteRestaurationTerminee(), QStringLiteral("Maroval"), ui::Icone::Information);
    ui::TerminerProgramme(0);
}

SauvegardeConnue DerniereSauvegarde() {
    SauvegardeConnue plusRecente;
    QList<LigneHistorique> lignes;
    try {
        if (QFileInfo::exists(CheminHistorique())) lignes = LireHistorique(CheminHistorique());
    } catch (...) {
        // Un historique illisible ne propose rien : l'utilisateur choisira son archive.
        return plusRecente;
    }
    for (const LigneHistorique& l : lignes) {
        const QString f = l.FichierSauvegarde.value_or(QString());
        const QString date = l.Date.value_or(QString());
        if (f.isEmpty() || !QFileInfo(f).isFile()) continue;
        if (plusRecente.fichier.isEmpty() || date > plusRecente.date) plusRecente = {f, date};
    }
    return plusRecente;
}

namespace {

QString DateLisible(const QString& date) {
    const QDateTime t = QDateTime::fromString(date, QStringLiteral("yyyyMMddHHmmss"));
    if (!t.isValid()) return QString();
    return t.toString(QStringLiteral("'du' dd/MM/yyyy 'à' HH:mm"));
}

} // namespace

void ProposerReprise(const QString& chemin, const DiagnosticBase& diagnostic) {
    const QString constat =
        (diagnostic.etat == EtatBase::Etrangere
             ? QStringLiteral("Ce fichier n'est pas une comptabilité Maroval :\n\n%1\n\n(%2)")
             : QStringLiteral("Le fichier de votre comptabilité est endommagé :\n\n%1\n\n(%2)"))
            .arg(QDir::toNativeSeparators(chemin), diagnostic.raison);
    const QString garde =
        QStringLiteral("Maroval n'y écrira rien. Vos comptes peuvent être repris d'une "
                       "sauvegarde ; le fichier actuel sera alors gardé à côté, sous le nom "
                       "%1, et rien ne sera effacé.")
            .arg(NomBaseEndommagee(ui::Maintenant()));
    for (;;) {
        const SauvegardeConnue derniere = DerniereSauvegarde();
        QString fichier;
        if (!derniere.fichier.isEmpty()) {
            const ui::Reponse r = ui::Boite(
                constat + QStringLiteral("\n\n") + garde +
                    QStringLiteral("\n\nCliquez [Oui] pour restaurer votre sauvegarde la plus "
                                   "récente %1 :\n%2\n\nCliquez [Non] pour choisir une autre "
                                   "sauvegarde.\n\nCliquez [Annuler] pour quitter Maroval sans "
                                   "rien changer.")
                        .arg(DateLisible(derniere.date),
                             QDir::toNativeSeparators(derniere.fichier)),
                QStringLiteral("Maroval"), ui::Icone::Critique, ui::Boutons::OuiNonAnnuler);
            if (r == ui::Reponse::Oui) fichier = derniere.fichier;
            if (r == ui::Reponse::Annuler) ui::TerminerProgramme(1);
        } else {
            const ui::Reponse r = ui::Boite(
                constat + QStringLiteral("\n\n") + garde +
                    QStringLiteral("\n\nAucune sauvegarde n'est connue de Maroval.\n\nCliquez "
                                   "[Oui] pour désigner un fichier de sauvegarde (.sav).\n\n"
                                   "Cliquez [Non] pour quitter Maroval sans rien changer."),
                QStringLiteral("Maroval"), ui::Icone::Critique, ui::Boutons::OuiNon);
            if (r != ui::Reponse::Oui) ui::TerminerProgramme(1);
        }
        if (fichier.isEmpty())
            fichier = ui::ChoisirFichierOuvrir(
                QStringLiteral("Choisir la sauvegarde à restaurer"),
                derniere.fichier.isEmpty() ? QDir::homePath()
                                           : QFileInfo(derniere.fichier).absolutePath(),
                QStringLiteral("Sauvegarde (*.sav)|*.sav|Tous (*.*)|*.*"));
        // Réussie, la restauration termine le programme ; manquée, la boîte d'échec est
        // montrée et le choix revient.
        if (!fichier.isEmpty()) RestaurerArchive(fichier, BaseEnPlace::GardeeACote);
    }
}
